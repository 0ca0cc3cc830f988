#include "TextStreams.h"

#include "Descriptor.h"
#include "FileReplacement.h"
#include "Text.h"

#include <algorithm>
#include <cerrno>
#include <unistd.h>

namespace folimark {
namespace {

constexpr std::size_t kPiece = std::size_t{64} * 1024;

} // namespace

Ref<TextInputStream> TextInputStream::Open(const Ref<FolderItem>& file) {
    const Descriptor descriptor = file->OpenForReading();
    if (!descriptor) {
        const int error = errno;
        throw IOException("Can't open", file->NativePath(), error);
    }
    std::string text;
    ssize_t got = 0;
    do {
        const std::size_t size = text.size();
        text.resize(size + kPiece);
        got = read(descriptor.Get(), text.data() + size, kPiece);
        text.resize(size + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
    } while (got > 0 || (got < 0 && errno == EINTR));
    if (got < 0) {
        const int error = errno;
        throw IOException("Can't read", file->NativePath(), error);
    }
    return Ref<TextInputStream>(new TextInputStream(std::move(text)));
}

std::string TextInputStream::ReadLine(std::nullptr_t /*encoding*/) {
    const std::size_t start = position_;
    const std::size_t end = std::min(text_.find_first_of("\r\n", start), text_.size());
    const bool isPair = text_.compare(end, 2, "\r\n") == 0;
    position_ = std::min(end + (isPair ? 2 : 1), text_.size());
    return text_.substr(start, end - start);
}

void TextInputStream::Close() {
    text_.clear();
    position_ = 0;
}

Ref<TextOutputStream> TextOutputStream::Create(const Ref<FolderItem>& file) {
    return Ref<TextOutputStream>(new TextOutputStream(file->NativePath()));
}

void TextOutputStream::RemoveLeftovers(const Ref<FolderItem>& file) {
    folimark::RemoveLeftovers(file->NativePath());
}

void TextOutputStream::WriteLine(std::string_view text) {
    if (closed_) {
        throw IOException("The file “" + path_ + "” is closed, and takes no further line.");
    }
    text_.append(text).append(EndOfLine);
}

void TextOutputStream::Close() {
    if (!closed_) {
        closed_ = true;
        ReplaceFile(path_, text_);
    }
}

} // namespace folimark
