// What a decoder doesn't write of a picture, since its file is cut off or damaged, would show what its memory
// held before: pieces of other pictures. So in this process all memory comes cleared, whichever library asks
// for it, and that without a cost for large blocks, which the system hands out cleared. AddressSanitizer has
// functions of its own.

#ifndef __SANITIZE_ADDRESS__

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>

extern "C" {

void* malloc(std::size_t size) {
    return calloc(1, size);
}

int posix_memalign(void** memory, std::size_t alignment, std::size_t size) {
    using Function = int(void**, std::size_t, std::size_t);
    static auto* const original = reinterpret_cast<Function*>(dlsym(RTLD_NEXT, "posix_memalign"));
    const int error = original(memory, alignment, size);
    if (error == 0) {
        std::memset(*memory, 0, size);
    }
    return error;
}

void* aligned_alloc(std::size_t alignment, std::size_t size) {
    void* memory = nullptr;
    errno = posix_memalign(&memory, alignment, size);
    return errno == 0 ? memory : nullptr;
}

} // extern "C"

#endif
