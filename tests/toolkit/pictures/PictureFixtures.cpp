#include "PictureFixtures.h"

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <sys/mman.h>

namespace folimark::test {
namespace {

char Letter(std::uint32_t pixel) {
    const std::uint32_t alpha = pixel >> 24;
    if (alpha == 0) {
        return '.';
    }
    std::size_t letter = 0;
    for (const int shift : {16, 8, 0}) {
        letter = letter * 2 + ((pixel >> shift & 255) * 5 > alpha * 2 ? 1 : 0);
    }
    return (alpha > 250 ? "KBGCRMYW" : "kbgcrmyw")[letter];
}

} // namespace

std::string PictureFile(const std::string& name) {
    std::ifstream file(PICTURE_FILES + name, std::ios::binary);
    if (!file) {
        throw std::runtime_error("there is no test file " + name);
    }
    return {std::istreambuf_iterator<char>(file), {}};
}

Descriptor FileWith(const std::string& content) {
    Descriptor file(memfd_create("test", MFD_CLOEXEC));
    if (write(file.Get(), content.data(), content.size()) != static_cast<ssize_t>(content.size())) {
        throw std::runtime_error("no memory for a file");
    }
    return file;
}

std::optional<DecodedPicture> Read(const std::string& content, std::string_view type, int width, int height) {
    const Descriptor file = FileWith(content);
    return ReadPicture({"/proc/self/fd/" + std::to_string(file.Get()), std::string(type), width, height})
        .picture;
}

std::string Quarters(const std::optional<DecodedPicture>& picture) {
    if (!picture) {
        return "nothing";
    }
    std::string letters;
    for (const int row : {1, 3}) {
        for (const int column : {1, 3}) {
            letters +=
                Letter(picture->pixels
                           .get()[picture->height * row / 4 * picture->width + picture->width * column / 4]);
        }
    }
    return letters;
}

std::string Sizes(const std::optional<DecodedPicture>& picture) {
    const auto size = [](int width, int height) {
        return std::to_string(width) + "x" + std::to_string(height);
    };
    return picture ? size(picture->pictureWidth, picture->pictureHeight) + " as "
                         + size(picture->width, picture->height)
                   : "nothing";
}

std::string Big(std::size_t length, std::uint64_t value) {
    std::string bytes(length, '\0');
    for (auto place = bytes.rbegin(); place != bytes.rend(); ++place, value >>= 8) {
        *place = static_cast<char>(value & 255);
    }
    return bytes;
}

std::string Little(std::size_t length, std::uint64_t value) {
    const std::string bytes = Big(length, value);
    return {bytes.rbegin(), bytes.rend()};
}

} // namespace folimark::test
