#include "RowStore.h"

#include <algorithm>

namespace folimark {
namespace {

// A row is the number of its texts in a byte, the length of each, and then the texts. A length is written in
// groups of seven bits, the lowest first, each but the last with the highest bit set: most take one byte.

constexpr std::size_t kBlock = std::size_t{1} << 20U;
constexpr unsigned kMore = 0x80;

std::size_t SizeOfLength(std::size_t length) {
    std::size_t size = 1;
    for (; length >= kMore; length >>= 7U) {
        ++size;
    }
    return size;
}

char* WriteLength(char* place, std::size_t length) {
    for (; length >= kMore; length >>= 7U) {
        *place++ = static_cast<char>(length | kMore);
    }
    *place++ = static_cast<char>(length);
    return place;
}

std::size_t ReadLength(const char*& place) {
    std::size_t length = 0;
    for (unsigned shift = 0;; shift += 7) {
        const auto byte = static_cast<unsigned char>(*place++);
        length |= static_cast<std::size_t>(byte & (kMore - 1)) << shift;
        if (byte < kMore) {
            return length;
        }
    }
}

std::size_t SizeOfRow(const char* row) {
    const char* place = row + 1;
    std::size_t texts = 0;
    for (std::size_t i = RowStore::Count(row); i > 0; --i) {
        texts += ReadLength(place);
    }
    return static_cast<std::size_t>(place - row) + texts;
}

} // namespace

char* RowStore::Room(std::size_t size) {
    if (blocks_.empty() || blocks_.back().size - blocks_.back().used < size) {
        const std::size_t block = std::max(kBlock, size);
        blocks_.push_back({std::make_unique_for_overwrite<char[]>(block), block, 0});
    }
    char* const place = blocks_.back().bytes.get() + blocks_.back().used;
    blocks_.back().used += size;
    size_ += size;
    return place;
}

const char* RowStore::Add(std::span<const std::string_view> texts) {
    std::size_t size = 1;
    for (const std::string_view text : texts) {
        size += SizeOfLength(text.size()) + text.size();
    }
    char* const row = Room(size);
    *row = static_cast<char>(texts.size());
    char* place = row + 1;
    for (const std::string_view text : texts) {
        place = WriteLength(place, text.size());
    }
    for (const std::string_view text : texts) {
        place += text.copy(place, text.size());
    }
    return row;
}

void RowStore::Remove(const char* row) {
    const std::size_t size = SizeOfRow(row);
    Block& latest = blocks_.back();
    if (row + size == latest.bytes.get() + latest.used) {
        latest.used -= size;
        size_ -= size;
    } else {
        waste_ += size;
    }
}

std::string_view RowStore::Text(const char* row, std::size_t index) {
    if (index >= Count(row)) {
        return "";
    }
    const char* place = row + 1;
    std::size_t before = 0;
    std::size_t length = 0;
    for (std::size_t i = 0; i < Count(row); ++i) {
        const std::size_t next = ReadLength(place);
        before += i < index ? next : 0;
        length = i == index ? next : length;
    }
    return {place + before, length};
}

} // namespace folimark
