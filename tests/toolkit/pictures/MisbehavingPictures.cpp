#include "Confinement.h"
#include "PictureProtocol.h"

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>
#include <sys/mman.h>
#include <vector>

// A picture process that speaks the protocol, and does harm instead of reading the file: the request's type
// says which. Otherwise it answers with one white pixel.
using namespace folimark;

namespace {

constexpr std::size_t kGreed = std::size_t{4} << 30;

void Answer(const PictureAnswer& answer, std::size_t length = sizeof(PictureAnswer)) {
    send(kPictureSocket, &answer, length, MSG_NOSIGNAL);
}

void Behave(std::string_view how, int memory) {
    PictureAnswer answer{1, 1, 1, 1};
    const std::size_t length = sizeof(std::uint32_t);
    void* place = mmap(nullptr, length, PROT_READ | PROT_WRITE, MAP_SHARED, memory, 0);
    std::memset(place, 0xFF, length);
    if (how != "keep the memory open") {
        munmap(place, length);
    }
    if (how == "die" || (how == "shrink the memory" && ftruncate(memory, 0) != 0)) {
        raise(SIGKILL);
    } else if (how == "hang") {
        pause();
    } else if (how == "be greedy") {
        const std::vector<char> greed(kGreed, 1);
        answer.width = static_cast<int>(greed.size() >> 20);
    } else if (how == "lie about the size") {
        answer.width = answer.height = 1 << 15;
    } else if (how == "lie below zero") {
        answer.width = answer.height = -1;
    } else if (how == "count descriptors") {
        using Folder = std::filesystem::directory_iterator;
        answer.width = static_cast<int>(std::distance(Folder("/proc/self/fd"), Folder())) - 1; // less its own
    } else if (how == "start a program") {
        answer.width = std::system("true") == 0 ? 2 : 1;
    } else if (how == "use the network") {
        answer.width = socket(AF_INET, SOCK_STREAM, 0) >= 0 ? 2 : 1;
    } else if (how == "write a file") {
        answer.width =
            std::ofstream(std::filesystem::temp_directory_path() / "folimark-test") << std::flush ? 2 : 1;
    } else if (how == "answer in part") {
        Answer(answer, 3);
        return;
    } else if (how == "answer twice") {
        Answer({7, 7, 7, 7});
    }
    Answer(answer);
    if (how == "answer and die") {
        raise(SIGKILL);
    }
}

} // namespace

int main() {
    ConfineThisProcess();
    PictureRequest request;
    for (;;) {
        std::array<Descriptor, kRequestDescriptors> descriptors;
        if (!ReceiveRequest(kPictureSocket, request, descriptors)) {
            return 0;
        }
        Behave(request.type.data(), descriptors[1].Get());
    }
}
