#pragma once

#include "Pixels.h"

namespace folimark {

/// Walks through a big-endian format. Past the end everything is 0 and empty, so that a reader needs to ask
/// only once, at its own end, whether what it read was there.
class BigEndianReader {
  public:
    explicit BigEndianReader(Bytes bytes) : left_(bytes) {}

    bool IsSound() const { return sound_; }
    Bytes Left() const { return left_; }

    Bytes Take(std::size_t length) {
        if (length > left_.size()) {
            sound_ = false;
            left_ = {};
            return {};
        }
        const Bytes taken = left_.first(length);
        left_ = left_.subspan(length);
        return taken;
    }
    std::uint16_t U16() { return static_cast<std::uint16_t>(Number(2)); }
    std::uint32_t U32() { return static_cast<std::uint32_t>(Number(4)); }
    std::uint64_t U64() { return Number(8); }

  private:
    std::uint64_t Number(std::size_t length) {
        std::uint64_t number = 0;
        for (const std::uint8_t byte : Take(length)) {
            number = number << 8 | byte;
        }
        return number;
    }

    Bytes left_;
    bool sound_ = true;
};

/// Four letters as one number: FourCC("raw ").
constexpr std::uint32_t FourCC(const char (&letters)[5]) {
    std::uint32_t code = 0;
    for (int i = 0; i < 4; ++i) {
        code = code << 8 | static_cast<std::uint8_t>(letters[i]);
    }
    return code;
}

} // namespace folimark
