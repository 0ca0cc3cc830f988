#include "PictureProcess.h"

#include "PatientFile.h"
#include "PictureProtocol.h"
#include "PictureWorker.h"

#include <algorithm>
#include <cstddef>
#include <fcntl.h>
#include <sys/mman.h>
#include <utility>

namespace folimark {
namespace {

constexpr std::chrono::seconds kPatience{5};

PictureRefusal lastRefusal = PictureRefusal::None;

PictureWorker& TheWorker() {
    static PictureWorker worker;
    return worker;
}

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
    void* place = mmap(nullptr, length, PROT_READ, MAP_SHARED, memory.Get(), 0);
    if (place == MAP_FAILED) {
        return nullptr;
    }
    return {static_cast<const std::uint32_t*>(place),
            [place, length](const std::uint32_t*) { munmap(place, length); }};
}

} // namespace

std::optional<DecodedPicture> ReadPicture(const std::string& path, std::string_view type, int wantedWidth,
                                          int wantedHeight, const Patience::Teller& teller) {
    lastRefusal = PictureRefusal::Unreadable;
    PictureRequest request;
    if (type.size() >= request.type.size()) {
        return std::nullopt;
    }
    std::copy(type.begin(), type.end(), request.type.begin());
    request.wantedWidth = wantedWidth;
    request.wantedHeight = wantedHeight;
    const Descriptor memory = NewSharedMemory(MostPixels(request));
    Patience patience(kPatience, teller);
    PatientFile file(path);
    const int descriptor = file.Wait(patience);
    if (!memory || descriptor < 0) {
        lastRefusal = patience.IsOver() ? PictureRefusal::TooSlow : PictureRefusal::Unreadable;
        return std::nullopt;
    }
    const std::optional<PictureAnswer> answer =
        TheWorker().Ask(request, {descriptor, memory.Get()}, patience);
    if (!answer || !IsSound(*answer, request)) {
        // A process that has died says nothing. What one says is only ever shown as one of a few sentences.
        lastRefusal = answer              ? answer->refusal
                      : patience.IsOver() ? PictureRefusal::TooSlow
                                          : PictureRefusal::Damaged;
        return std::nullopt;
    }
    DecodedPicture picture{answer->pictureWidth, answer->pictureHeight, answer->width, answer->height,
                           nullptr};
    picture.pixels = TakePixels(memory, std::size_t(picture.width) * std::size_t(picture.height));
    if (!picture.pixels) {
        lastRefusal = PictureRefusal::Damaged;
        TheWorker().End();
        return std::nullopt;
    }
    lastRefusal = PictureRefusal::None;
    return picture;
}

PictureRefusal LastRefusal() {
    return lastRefusal;
}

bool PictureProcessIsBroken() {
    if (!TheWorker().IsSuspect()) {
        return false;
    }
    const PictureRequest anything;
    const Descriptor file(memfd_create("folimark-nothing", MFD_CLOEXEC));
    const Descriptor memory = NewSharedMemory(MostPixels(anything));
    Patience patience(kPatience);
    TheWorker().Ask(anything, {file.Get(), memory.Get()}, patience);
    return TheWorker().IsSuspect();
}

void EndPictureProcess() {
    TheWorker().End();
}

void SetPictureProcessExecutable(std::string path) {
    TheWorker().SetExecutable(std::move(path));
}

} // namespace folimark
