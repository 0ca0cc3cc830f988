#include "PictureProcess.h"

#include "PictureProtocol.h"
#include "PictureWorker.h"

#include <algorithm>
#include <cstddef>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <utility>

namespace folimark {
namespace {

constexpr std::chrono::seconds kPatience{5};

PictureWorker& TheWorker() {
    static PictureWorker worker;
    return worker;
}

bool IsRegularFile(int file) {
    struct stat status {};
    return fstat(file, &status) == 0 && S_ISREG(status.st_mode);
}

/// Memory for the largest answer, whose size nobody can change any more; no descriptor if there is none.
Descriptor NewSharedMemory() {
    Descriptor memory(memfd_create("folimark-picture", MFD_CLOEXEC | MFD_ALLOW_SEALING));
    if (memory && ftruncate(memory.Get(), kMostPixels * off_t{sizeof(std::uint32_t)}) == 0
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

bool IsSound(const PictureAnswer& answer) {
    return answer.pictureWidth > 0 && answer.pictureHeight > 0 && answer.width > 0 && answer.height > 0
           && std::int64_t{answer.width} * answer.height <= kMostPixels;
}

} // namespace

std::optional<DecodedPicture> ReadPicture(int file, std::string_view type, int wantedWidth,
                                          int wantedHeight) {
    PictureRequest request;
    if (!IsRegularFile(file) || type.size() >= request.type.size()) {
        return std::nullopt;
    }
    std::copy(type.begin(), type.end(), request.type.begin());
    request.wantedWidth = wantedWidth;
    request.wantedHeight = wantedHeight;
    const Descriptor memory = NewSharedMemory();
    if (!memory) {
        return std::nullopt;
    }
    const std::optional<PictureAnswer> answer = TheWorker().Ask(request, {file, memory.Get()}, kPatience);
    if (!answer || !IsSound(*answer)) {
        return std::nullopt;
    }
    DecodedPicture picture{answer->pictureWidth, answer->pictureHeight, answer->width, answer->height,
                           nullptr};
    picture.pixels = TakePixels(memory, std::size_t(picture.width) * std::size_t(picture.height));
    if (!picture.pixels) {
        TheWorker().End();
        return std::nullopt;
    }
    return picture;
}

void EndPictureProcess() {
    TheWorker().End();
}

void SetPictureProcessExecutable(std::string path) {
    TheWorker().SetExecutable(std::move(path));
}

} // namespace folimark
