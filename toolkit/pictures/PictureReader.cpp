#include "PictureReader.h"

#include "Patience.h"
#include "PatientFile.h"
#include "PictureProtocol.h"

#include <algorithm>
#include <cstddef>
#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/mman.h>
#include <sys/stat.h>

namespace folimark {
namespace {

constexpr std::chrono::seconds kPatience{5};

/// Memory for so many pixels, whose size nobody can change any more; no descriptor if there is none.
Descriptor NewSharedMemory(std::int64_t pixels) {
    Descriptor memory(memfd_create("folimark-picture", MFD_CLOEXEC | MFD_ALLOW_SEALING));
    if (memory && ftruncate(memory.Get(), pixels * off_t{sizeof(std::uint32_t)}) == 0
        && fcntl(memory.Get(), F_ADD_SEALS, F_SEAL_SHRINK | F_SEAL_GROW) == 0) {
        return memory;
    }
    return Descriptor();
}

/// The pixels in `memory`, which is closed to writers first: that fails if one has it mapped still.
std::shared_ptr<const std::uint32_t> TakePixels(const Descriptor& memory, std::size_t count) {
    if (fcntl(memory.Get(), F_ADD_SEALS, F_SEAL_WRITE | F_SEAL_SEAL) != 0) {
        return nullptr;
    }
    const std::size_t length = count * sizeof(std::uint32_t);
    void* start = mmap(nullptr, length, PROT_READ, MAP_SHARED, memory.Get(), 0);
    if (start == MAP_FAILED) {
        return nullptr;
    }
    return {static_cast<const std::uint32_t*>(start),
            [start, length](const std::uint32_t*) { munmap(start, length); }};
}

std::int64_t InNanoseconds(const timespec& time) {
    return time.tv_sec * std::int64_t{1'000'000'000} + time.tv_nsec;
}

bool IsOver(PictureWorker::Clock::time_point end) {
    return PictureWorker::Clock::now() >= end;
}

FileState StateOf(const struct stat& status) {
    return {status.st_dev, status.st_ino, status.st_size, InNanoseconds(status.st_mtim),
            InNanoseconds(status.st_ctim)};
}

} // namespace

std::optional<FileState> FileState::Of(const std::string& path) {
    const auto ask = [path] {
        struct stat status {};
        return stat(path.c_str(), &status) == 0 ? std::optional(StateOf(status)) : std::nullopt;
    };
    return AskPatiently(ask).value_or(std::nullopt);
}

std::optional<FileState> FileState::Of(int descriptor) {
    struct stat status {};
    return fstat(descriptor, &status) == 0 ? std::optional(StateOf(status)) : std::nullopt;
}

PictureReader::PictureReader() : brokenOff_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

PictureReading PictureReader::Read(const PictureQuestion& question) {
    PictureRequest request;
    if (question.type.size() >= request.type.size()) {
        return {};
    }
    std::ranges::copy(question.type, request.type.begin());
    request.wantedWidth = question.wantedWidth;
    request.wantedHeight = question.wantedHeight;
    const Descriptor memory = NewSharedMemory(MostPixels(request));
    const auto end = PictureWorker::Clock::now() + kPatience;
    PatientFile file(question.path);
    const int descriptor = file.Wait(end);
    PictureReading reading;
    if (!memory || descriptor < 0) {
        reading.refusal = IsOver(end) ? PictureRefusal::TooSlow : PictureRefusal::Unreadable;
        return reading;
    }
    reading.file = FileState::Of(descriptor);
    const std::optional<PictureAnswer> answer =
        worker_.Ask(request, {descriptor, memory.Get()}, end, brokenOff_.Get());
    if (!answer || !IsSound(*answer, request)) {
        reading.refusal = WhyNot(reading, answer, end);
        return reading;
    }
    DecodedPicture picture{answer->pictureWidth, answer->pictureHeight, answer->width, answer->height,
                           nullptr};
    picture.pixels = TakePixels(memory, std::size_t(picture.width) * std::size_t(picture.height));
    if (picture.pixels) {
        reading.picture = std::move(picture);
        reading.refusal = PictureRefusal::None;
    } else {
        reading.refusal = PictureRefusal::Damaged;
        End();
    }
    return reading;
}

PictureRefusal PictureReader::WhyNot(const PictureReading& reading,
                                     const std::optional<PictureAnswer>& answer,
                                     PictureWorker::Clock::time_point end) {
    if (!answer && IsBrokenOff()) {
        return PictureRefusal::BrokenOff;
    }
    if (reading.file && reading.file->size == 0) {
        return PictureRefusal::Empty;
    }
    if (!answer && IsOver(end)) {
        return PictureRefusal::TooSlow;
    }
    if (IsBroken()) {
        return PictureRefusal::ReaderIsBroken;
    }
    // What the process says is only ever shown as one of a few sentences.
    return answer ? answer->refusal : PictureRefusal::Damaged;
}

bool PictureReader::IsBroken() {
    if (!worker_.IsSuspect()) {
        return false;
    }
    const PictureRequest anything;
    const Descriptor file(memfd_create("folimark-nothing", MFD_CLOEXEC));
    const Descriptor memory = NewSharedMemory(MostPixels(anything));
    worker_.Ask(anything, {file.Get(), memory.Get()}, PictureWorker::Clock::now() + kPatience,
                brokenOff_.Get());
    return worker_.IsSuspect();
}

void PictureReader::BreakOff() {
    eventfd_write(brokenOff_.Get(), 1);
}

bool PictureReader::IsBrokenOff() const {
    pollfd counter{brokenOff_.Get(), POLLIN, 0};
    return poll(&counter, 1, 0) > 0;
}

void PictureReader::GoOn() {
    eventfd_t count = 0;
    eventfd_read(brokenOff_.Get(), &count);
}

} // namespace folimark
