#pragma once

#include <cstdint>

namespace folimark {

/// Why there is no picture of a file.
enum class PictureRefusal : std::int32_t {
    None,           ///< there is one
    Unreadable,     ///< the file can't be opened
    Empty,          ///< it has no bytes
    Damaged,        ///< damaged beyond showing, or of no kind that can be read
    TooLarge,       ///< takes more memory than a preview may
    TooSlow,        ///< takes more time than a preview may
    ReaderIsBroken, ///< no fault of the file: the process that reads pictures is missing, or ends at anything
    BrokenOff,      ///< nobody wanted it any more
};

} // namespace folimark
