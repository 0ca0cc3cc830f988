#include "RowStore.h"

#include <algorithm>

namespace folimark {
namespace {

// A row is the number of its texts in a byte, and then the texts, each behind its length. A length is written
// in groups of seven bits, the lowest first, each but the last with the highest bit set: most take one byte.

constexpr std::size_t kBlock = std::size_t{1} << 20U;
constexpr unsigned kMore = 0x80;

std::size_t SizeOfLength(std::size_t length) {
    std::size_t size = 1;
    for (; length >= kMore; length >>= 7U) {
        ++size;
    }
    return size;
}

char* WriteLength(char* at, std::size_t length) {
    for (; length >= kMore; length >>= 7U) {
        *at++ = static_cast<char>(length | kMore);
    }
    *at++ = static_cast<char>(length);
    return at;
}

std::size_t ReadLength(const char*& at) {
    std::size_t length = 0;
    for (unsigned shift = 0;; shift += 7) {
        const auto byte = static_cast<unsigned char>(*at++);
        length |= static_cast<std::size_t>(byte & (kMore - 1)) << shift;
        if (byte < kMore) {
            return length;
        }
    }
}

std::string_view TakeText(const char*& at) {
    const std::size_t length = ReadLength(at);
    at += length;
    return {at - length, length};
}

char* WriteText(char* at, std::string_view text) {
    at = WriteLength(at, text.size());
    return at + text.copy(at, text.size());
}

/// Where the text of that index begins, or the row ends.
const char* TextAt(const char* row, std::size_t index) {
    const char* at = row + 1;
    for (; index > 0; --index) {
        TakeText(at);
    }
    return at;
}

std::size_t SizeOfRow(const char* row) {
    return static_cast<std::size_t>(TextAt(row, RowStore::Count(row)) - row);
}

} // namespace

char* RowStore::Room(std::size_t size) {
    if (blocks_.empty() || blocks_.back().size - blocks_.back().used < size) {
        const std::size_t block = std::max(kBlock, size);
        blocks_.push_back({std::make_unique_for_overwrite<char[]>(block), block, 0});
    }
    char* const at = blocks_.back().bytes.get() + blocks_.back().used;
    blocks_.back().used += size;
    size_ += size;
    return at;
}

const char* RowStore::Add(std::span<const std::string_view> texts) {
    std::size_t size = 1;
    for (const std::string_view text : texts) {
        size += SizeOfLength(text.size()) + text.size();
    }
    char* const row = Room(size);
    *row = static_cast<char>(texts.size());
    char* at = row + 1;
    for (const std::string_view text : texts) {
        at = WriteText(at, text);
    }
    return row;
}

bool RowStore::IsLatest(const char* row) const {
    return row + SizeOfRow(row) == blocks_.back().bytes.get() + blocks_.back().used;
}

bool RowStore::ChangeLast(const char* row, std::string_view text) {
    Block& latest = blocks_.back();
    if (!IsLatest(row)) {
        return false;
    }
    const auto start = static_cast<std::size_t>(TextAt(row, Count(row) - 1) - latest.bytes.get());
    const std::size_t used = start + SizeOfLength(text.size()) + text.size();
    if (used > latest.size) {
        return false;
    }
    WriteText(latest.bytes.get() + start, text);
    size_ = size_ - latest.used + used;
    latest.used = used;
    return true;
}

void RowStore::Remove(const char* row) {
    const std::size_t size = SizeOfRow(row);
    if (IsLatest(row)) {
        blocks_.back().used -= size;
        size_ -= size;
    } else {
        waste_ += size;
    }
}

std::string_view RowStore::Text(const char* row, std::size_t index) {
    if (index >= Count(row)) {
        return "";
    }
    const char* at = TextAt(row, index);
    return TakeText(at);
}

} // namespace folimark
