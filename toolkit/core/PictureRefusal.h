#pragma once

#include <cstdint>

namespace folimark {

/// Why a picture could not be read.
enum class PictureRefusal : std::int32_t {
    None,
    Unreadable, ///< the file can't be opened
    Damaged,    ///< damaged beyond showing, or of no kind that can be read
    TooLarge,   ///< takes more memory than a preview may
    TooSlow,    ///< takes more time than a preview may
};

} // namespace folimark
