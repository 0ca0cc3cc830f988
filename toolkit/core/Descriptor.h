#pragma once

#include <cerrno>
#include <unistd.h>
#include <utility>

namespace folimark {

/// Owns a file descriptor, or none (-1). Its end leaves errno as it was, so that what failed before it can
/// still be told.
class Descriptor {
  public:
    explicit Descriptor(int descriptor = -1) : descriptor_(descriptor) {}
    Descriptor(Descriptor&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
    Descriptor& operator=(Descriptor other) noexcept {
        std::swap(descriptor_, other.descriptor_);
        return *this;
    }
    ~Descriptor() {
        const int error = errno;
        Close();
        errno = error;
    }

    int Get() const { return descriptor_; }
    explicit operator bool() const { return descriptor_ >= 0; }

    /// Lets go of it: whoever takes it closes it.
    int Release() { return std::exchange(descriptor_, -1); }

    /// Closes it now, for those who have to know whether that went well: 0, or -1 with errno set.
    int Close() { return descriptor_ < 0 ? 0 : close(Release()); }

  private:
    int descriptor_;
};

} // namespace folimark
