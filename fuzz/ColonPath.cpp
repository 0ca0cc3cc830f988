#include "ColonPath.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace folimark;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

// Whatever stands there leads to one place, and each name of the file system comes back as it was.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    if (const auto path = NativePathOf(text); path && NativePathOf(ColonPathOfFolder(*path)) != path) {
        std::abort();
    }
    ReadableNames(text);
    const bool isName = !text.empty() && text != "." && text != ".." && text.find('/') == std::string::npos
                        && text.find('\0') == std::string::npos;
    const std::string field = FieldOfName(text);
    if (isName && (NameOfField(field) != text || field.find_first_of(":\n\r") != std::string::npos)) {
        std::abort();
    }
    return 0;
}
