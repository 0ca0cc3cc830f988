#include "Confinement.h"
#include "PictureFormat.h"
#include "PictureProtocol.h"

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <fcntl.h>
#include <new>
#include <sys/mman.h>
#include <sys/stat.h>

#include <magick/magick-baseconfig.h>

namespace folimark {
namespace {

/// A descriptor's memory as long as this lives; empty if it can't be mapped.
class Mapping {
  public:
    Mapping(int descriptor, std::size_t length, int protection, int flags) : length_(length) {
        if (length > 0) {
            start_ = mmap(nullptr, length, protection, flags, descriptor, 0);
        }
    }
    Mapping(const Mapping&) = delete;
    Mapping& operator=(const Mapping&) = delete;
    ~Mapping() {
        if (*this) {
            munmap(start_, length_);
        }
    }
    explicit operator bool() const { return start_ != MAP_FAILED; }
    void* Start() const { return start_; }

  private:
    void* start_ = MAP_FAILED;
    std::size_t length_;
};

std::optional<Pixels> Decode(int file, const PictureRequest& request) {
    struct stat status {};
    if (fstat(file, &status) != 0 || !S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    const auto length = static_cast<std::size_t>(status.st_size);
    // If the file shrinks while it is read, this process dies of it, as of any other fault in a file.
    const Mapping content(file, length, PROT_READ, MAP_PRIVATE);
    if (!content) {
        return std::nullopt;
    }
    const Bytes bytes(static_cast<const std::uint8_t*>(content.Start()), length);
    return DecodeFile(request.type.data(), bytes, {request.wantedWidth, request.wantedHeight});
}

bool CopyTo(int memory, const std::vector<std::uint32_t>& argb) {
    const std::size_t length = argb.size() * sizeof argb[0];
    struct stat status {};
    if (fstat(memory, &status) != 0 || static_cast<std::size_t>(status.st_size) < length) {
        return false;
    }
    const Mapping target(memory, length, PROT_READ | PROT_WRITE, MAP_SHARED);
    if (target) {
        std::memcpy(target.Start(), argb.data(), length);
    }
    return bool(target);
}

PictureAnswer Refused(PictureRefusal refusal) {
    PictureAnswer answer;
    answer.refusal = refusal;
    return answer;
}

PictureAnswer AnswerTo(const PictureRequest& request, int file, int memory) {
    try {
        const std::optional<Pixels> pixels = Decode(file, request);
        if (pixels && CopyTo(memory, pixels->argb)) {
            return {pixels->picture.width, pixels->picture.height, pixels->size.width, pixels->size.height};
        }
    } catch (const PictureTooLarge&) {
        return Refused(PictureRefusal::TooSlow);
    } catch (const std::bad_alloc&) {
        // A lie about sizes ends here, too. The next file has all of the memory again.
        return Refused(PictureRefusal::TooLarge);
    } catch (const std::exception&) { // whatever else a decoder finds wrong
    }
    return Refused(PictureRefusal::Damaged);
}

void Settle() {
    // The libraries' own files, and what ImageMagick is told to do with its own.
    const std::array<std::string, 2> readable{"/usr", MAGICKCORE_CONFIGURE_PATH};
    ConfineThisProcess(readable);
    signal(SIGXFSZ, SIG_IGN); // a file that may not be written is an error for its writer, no reason to die
}

int Serve() {
    PictureRequest request;
    for (;;) {
        std::array<Descriptor, kRequestDescriptors> descriptors;
        if (!ReceiveRequest(kPictureSocket, request, descriptors)) {
            return EXIT_SUCCESS;
        }
        PictureAnswer answer = AnswerTo(request, descriptors[0].Get(), descriptors[1].Get());
        answer.number = request.number;
        if (send(kPictureSocket, &answer, sizeof answer, MSG_NOSIGNAL) != ssize_t{sizeof answer}) {
            return EXIT_FAILURE;
        }
    }
}

} // namespace
} // namespace folimark

int main() {
    folimark::Settle();
    // The libraries' own clean-up at exit has nothing to save, and has its own faults.
    std::_Exit(folimark::Serve());
}
