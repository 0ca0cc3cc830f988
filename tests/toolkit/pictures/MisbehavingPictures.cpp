#include "Confinement.h"
#include "Escapes.h"
#include "PictureProtocol.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <vector>

// A picture process that speaks the protocol, and does harm instead of reading the file: the request's type
// says which. Otherwise it answers with one white pixel.
using namespace folimark;
using namespace folimark::test;

namespace {

constexpr std::size_t kGreed = std::size_t{4} << 30;

const bool hasOwnSession = getsid(0) == getpid(); // which may not be asked later
int questions = 0;

void Answer(const PictureAnswer& answer, std::size_t length = sizeof(PictureAnswer)) {
    send(kPictureSocket, &answer, length, MSG_NOSIGNAL);
}

/// 2 if the thing could be done, 1 if it was refused.
int Try(std::size_t index, int file) {
    std::array<char, 4096> path{};
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    const bool isDone = readlink(link.c_str(), path.data(), path.size() - 1) < 0
                        || Escapes()[index].attempt(path.data()) != -1;
    constexpr std::array kRefusals{EPERM, EACCES, ENOSYS, ENXIO, ENOMEM};
    const bool isRefused = std::ranges::find(kRefusals, errno) != kRefusals.end();
    return isDone || !isRefused ? 2 : 1;
}

/// The descriptors that are open, of those that the limit allows.
int OpenDescriptors() {
    int count = 0;
    for (int number = 0; number < 128; ++number) {
        count += fcntl(number, F_GETFD) >= 0 ? 1 : 0;
    }
    return count;
}

void Behave(const PictureRequest& request, int file, int memory) {
    const std::string_view how = request.type.data();
    PictureAnswer answer{1, 1, 1, 1, request.number};
    const std::size_t length = sizeof(std::uint32_t);
    void* place = mmap(nullptr, length, PROT_READ | PROT_WRITE, MAP_SHARED, memory, 0);
    std::memset(place, 0xFF, length);
    if (how != "keep the memory open") {
        munmap(place, length);
    }
    if (how == "die" || (how == "shrink the memory" && ftruncate(memory, 0) != 0)) {
        raise(SIGKILL);
    } else if (how == "end") {
        syscall(SYS_exit_group, 0); // comes back if it is refused
    } else if (how == "hang") {
        pause();
        for (;;) {
        }
    } else if (how == "be greedy") {
        const std::vector<char> greed(kGreed, 1);
        answer.width = static_cast<int>(greed.size() >> 20);
    } else if (how == "grow") {
        static const std::vector<unsigned char> kept(kGreed / 16, 1);
        answer.width = kept.front();
    } else if (how == "lie about the size") {
        answer.width = answer.height = (1 << 13) + 1; // some pixels more than there may be
    } else if (how == "lie below zero") {
        answer.width = answer.height = -1;
    } else if (how == "lie about one side") {
        answer.width = 1 << 26;
    } else if (how == "count descriptors") {
        answer.width = OpenDescriptors();
    } else if (how == "count variables") {
        for (char** variable = environ; *variable != nullptr; ++variable) {
            answer.width += std::strncmp(*variable, "ASAN", 4) != 0 ? 1 : 0;
        }
    } else if (how == "count questions") {
        answer.width = questions;
    } else if (how == "count sessions") {
        answer.width = hasOwnSession ? 1 : 2;
    } else if (how.starts_with("try ")) {
        // A process that begins with this takes the place of one that has become another program by it.
        answer.width = questions > 1 ? Try(std::strtoul(how.data() + 4, nullptr, 10), file) : 2;
    } else if (how == "miss a call") {
        answer.width = MissingCall().empty() ? 1 : 2;
    } else if (how == "answer in part") {
        Answer(answer, 3);
        return;
    } else if (how == "answer twice") {
        Answer({7, 7, 7, 7, request.number});
    }
    Answer(answer);
    if (how == "answer and die") {
        raise(SIGKILL);
    }
}

/// A first request may say which of the walls stand: "only calls", or "only files" of Landlock's version 3,
/// say.
Walls WallsOf(std::string_view how) {
    if (how.starts_with("only files ")) {
        return {.calls = false, .newestFiles = std::atoi(how.data() + 11)};
    }
    return {.files = how != "only calls"};
}

} // namespace

int main() {
    PictureRequest request;
    for (bool isFree = true;; isFree = false) {
        std::array<Descriptor, kRequestDescriptors> descriptors;
        if (!ReceiveRequest(kPictureSocket, request, descriptors)) {
            return 0;
        }
        const char* how = request.type.data();
        if (isFree) {
            const std::array<std::string, 2> readable{"/usr", "/dev/zero"};
            ConfineThisProcess(readable, WallsOf(how));
        }
        ++questions;
        Behave(request, descriptors[0].Get(), descriptors[1].Get());
    }
}
