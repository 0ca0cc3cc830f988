#include "Descriptor.h"
#include "FolderItem.h"
#include "TextStreams.h"

#include <cstdint>
#include <sys/mman.h>

using namespace folimark;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

// The album list file: its lines, and the folders that they stand for.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Descriptor file(memfd_create("list", MFD_CLOEXEC));
    if (write(file.Get(), data, size) != static_cast<ssize_t>(size)) {
        return 0;
    }
    const auto stream =
        TextInputStream::Open(FolderItem::FromNativePath("/proc/self/fd/" + std::to_string(file.Get())));
    while (!stream->EOF()) {
        if (const Ref<FolderItem> folder = GetFolderItem(stream->ReadLine())) {
            const Ref<FolderItem> again = GetFolderItem(folder->AbsolutePath());
            if (!again || again->AbsolutePath() != folder->AbsolutePath()) {
                std::abort();
            }
            folder->Directory();
        }
    }
    return 0;
}
