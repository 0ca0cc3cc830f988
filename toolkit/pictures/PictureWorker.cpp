#include "PictureWorker.h"

#include "Landlock.h"

#include <cerrno>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <poll.h>

namespace folimark {
namespace {

using Clock = PictureWorker::Clock;

// What a process may keep after an answer, and how many answers it gives.
constexpr std::int64_t kMostResident = std::int64_t{192} << 20; // bytes
constexpr int kMostAnswers = 500;

/// A large picture takes a second or two; those that take more are broken off before this.
constexpr rlim_t kMostSeconds = 120;
/// The system counts all of the user's threads together. A desktop has two thousand.
constexpr rlim_t kMostThreads = 16'384;

std::string DefaultExecutable() {
    std::array<char, PATH_MAX> own{};
    const ssize_t length = readlink("/proc/self/exe", own.data(), own.size());
    const std::string path(own.data(), length < 0 ? 0 : static_cast<std::size_t>(length));
    return path.substr(0, path.rfind('/') + 1) + "folimark-pictures";
}

ChildStart StartOf(std::string executable, int socket) {
    ChildStart start{{std::move(executable)}, std::vector<std::string>(), socket, false, {}};
    start.limits = {
        {RLIMIT_CORE, 0}, {RLIMIT_NOFILE, 128}, {RLIMIT_CPU, kMostSeconds}, {RLIMIT_NPROC, kMostThreads}};
#ifdef __SANITIZE_ADDRESS__
    // AddressSanitizer reserves terabytes, and has something to say.
    start.keepsErrorOutput = true;
    for (const char* name : {"ASAN_OPTIONS", "UBSAN_OPTIONS"}) {
        if (const char* value = std::getenv(name)) {
            start.environment->push_back(std::string(name) + "=" + value);
        }
    }
#else
    // A library's temporary files can't fill the disk; shared memory isn't written but mapped.
    start.limits.push_back({RLIMIT_FSIZE, 0});
    start.limits.push_back({RLIMIT_DATA, rlim_t{3} << 29}); // 1.5 GiB
    // What is only read counts for neither, but takes page tables: some 64 MiB for 32 GiB.
    start.limits.push_back({RLIMIT_AS, rlim_t{1} << 35});
#endif
    return start;
}

/// Once a run, for whoever looks into the journal.
void TellOfMissingWall() {
    static const bool isThere = LandlockVersion() > 0;
    static const bool told =
        !isThere
        && (std::clog << "folimark: This kernel has no Landlock. What reads pictures could "
                         "read other files, too, but not send them anywhere.\n");
    static_cast<void>(told);
}

/// Waits until `socket` has something to read, or has been closed by the other side. False at `end`, and when
/// `brokenOff` has something to read.
bool WaitFor(int socket, Clock::time_point end, int brokenOff = -1) {
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
        std::array<pollfd, 2> wanted{{{socket, POLLIN, 0}, {brokenOff, POLLIN, 0}}};
        const int ready = poll(wanted.data(), wanted.size(), left > 0 ? static_cast<int>(left) : 0);
        if (ready >= 0 || errno != EINTR) {
            return ready > 0 && wanted[1].revents == 0;
        }
    }
}

/// In bytes; 0 if that can't be told.
std::int64_t ResidentMemoryOf(pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/statm");
    std::int64_t all = 0;
    std::int64_t resident = 0;
    return file >> all >> resident ? resident * sysconf(_SC_PAGESIZE) : 0;
}

} // namespace

bool PictureWorker::Start() {
    std::array<int, 2> pair{};
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, pair.data()) != 0) {
        return false;
    }
    Descriptor ours(pair[0]);
    const Descriptor theirs(pair[1]);
    TellOfMissingWall();
    process_ = StartChild(StartOf(executable_.empty() ? DefaultExecutable() : executable_, theirs.Get()));
    if (process_) {
        socket_ = std::move(ours);
        answers_ = 0;
    }
    return process_.has_value();
}

void PictureWorker::End() {
    if (process_) {
        process_->Kill();
    }
    process_.reset();
    socket_ = Descriptor();
}

/// It runs, and hasn't said a word that nobody asked for.
bool PictureWorker::IsQuiet() const {
    return process_ && !WaitFor(socket_.Get(), Clock::now());
}

/// The largest picture that it has read may still take up its memory, and what a file has done to it unseen
/// goes with it.
bool PictureWorker::IsWorn() const {
    return answers_ >= kMostAnswers || ResidentMemoryOf(process_->id) > kMostResident;
}

std::optional<PictureAnswer> PictureWorker::Ask(PictureRequest request,
                                                const std::array<int, kRequestDescriptors>& descriptors,
                                                Clock::time_point end, int brokenOff) {
    request.number = ++questions_;
    isSuspect_ = true;
    // A process that dies of a question may have been dying before (the system's memory ran out, say), so a
    // fresh one gets the question too. One that takes too long has no such excuse.
    for (bool isFresh = false; !isFresh;) {
        if (!IsQuiet()) {
            End();
            if (!Start()) {
                break;
            }
            isFresh = true;
        }
        if (SendRequest(socket_.Get(), request, descriptors)) {
            PictureAnswer answer;
            if (!WaitFor(socket_.Get(), end, brokenOff)) {
                isSuspect_ = false;
                break;
            }
            if (recv(socket_.Get(), &answer, sizeof answer, MSG_DONTWAIT | MSG_TRUNC)
                    == ssize_t{sizeof answer}
                && answer.number == request.number) {
                ++answers_;
                isSuspect_ = false;
                if (IsWorn()) { // the next one is ready by the next question
                    End();
                    Start();
                }
                return answer;
            }
        }
        End();
    }
    End();
    return std::nullopt;
}

} // namespace folimark
