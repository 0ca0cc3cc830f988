#include "DisplayText.h"

#include "Text.h"

#include <algorithm>
#include <cstdint>
#include <unicode/uchar.h>
#include <unicode/utf8.h>

namespace folimark {
namespace {

// The escapes of colon paths (see ColonPath.h).
constexpr std::int32_t kFirstEscape = 0xEF00;
constexpr std::int32_t kLastEscape = 0xEFFF;

constexpr std::int32_t kFirstControlPicture = 0x2400;
constexpr std::int32_t kDeletePicture = 0x2421;
constexpr std::int32_t kDelete = 0x7F;
constexpr std::string_view kNoCharacter = "\uFFFD";

// What stands between them is a whole of its own, read from the left as the rest of the line is.
constexpr std::string_view kIsolate = "\u2066";
constexpr std::string_view kEndOfIsolate = "\u2069";

struct Invisible {
    std::int32_t character;
    std::string_view name; ///< as in the Unicode Standard's code charts
};

constexpr Invisible kInvisibles[] = {
    {0x061C, "ALM"}, {0x200E, "LRM"}, {0x200F, "RLM"}, {0x2028, "LSEP"}, {0x2029, "PSEP"},
    {0x202A, "LRE"}, {0x202B, "RLE"}, {0x202C, "PDF"}, {0x202D, "LRO"},  {0x202E, "RLO"},
    {0x2066, "LRI"}, {0x2067, "RLI"}, {0x2068, "FSI"}, {0x2069, "PDI"},
};

bool IsControl(std::int32_t character) {
    return (character >= 0 && character < ' ') || character == kDelete;
}

bool LaysOut(std::int32_t character) {
    return character == '\t' || character == '\n' || character == '\r';
}

/// Do two parts of a text meet at this character? Paths are shown with arrows between their folders.
bool Separates(std::int32_t character) {
    return character == ':' || character == u'→' || character == u'“' || character == u'”'
           || LaysOut(character);
}

bool IsReadFromRight(std::int32_t character) {
    const UCharDirection direction = u_charDirection(character);
    return direction == U_RIGHT_TO_LEFT || direction == U_RIGHT_TO_LEFT_ARABIC;
}

void AppendControlPicture(std::string& text, std::int32_t control) {
    text += Chr(control == kDelete ? kDeletePicture : kFirstControlPicture + control);
}

/// Appends what stands for a character that can't be shown as it is; false for one that can.
bool AppendStandIn(std::string& shown, std::int32_t character) {
    if (IsControl(character)) {
        if (LaysOut(character)) {
            return false;
        }
        AppendControlPicture(shown, character);
        return true;
    }
    if (character >= kFirstEscape && character <= kLastEscape && IsControl(character - kFirstEscape)) {
        AppendControlPicture(shown, character - kFirstEscape);
        return true;
    }
    const bool isC1 = character > kDelete && character < 0xA0;
    if (character < 0 || isC1 || (character >= kFirstEscape && character <= kLastEscape)) {
        shown += kNoCharacter;
        return true;
    }
    const auto* const invisible = std::ranges::find(kInvisibles, character, &Invisible::character);
    if (invisible != std::end(kInvisibles)) {
        shown.append("⟦").append(invisible->name).append("⟧");
        return true;
    }
    return false;
}

/// Collects what is shown, part by part, and isolates the parts that are read from the right.
class Parts {
  public:
    void Add(std::string_view text, std::int32_t character) {
        if (Separates(character)) {
            End();
            shown_ += text;
        } else if (!AppendStandIn(part_, character)) {
            part_ += text;
            fromRight_ = fromRight_ || IsReadFromRight(character);
        }
    }

    std::string Take() {
        // A text of one part stands in a line, or a cell, of its own.
        if (shown_.empty()) {
            return std::move(part_);
        }
        End();
        return std::move(shown_);
    }

  private:
    void End() {
        if (fromRight_) {
            shown_.append(kIsolate).append(part_).append(kEndOfIsolate);
        } else {
            shown_ += part_;
        }
        part_.clear();
        fromRight_ = false;
    }

    std::string shown_;
    std::string part_;
    bool fromRight_ = false;
};

bool IsPlain(char byte) {
    return byte >= ' ' && byte <= '~';
}

} // namespace

std::string ForDisplay(std::string_view text) {
    if (std::ranges::all_of(text, IsPlain)) {
        return std::string(text);
    }
    Parts parts;
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t start = i;
        std::int32_t character = 0;
        U8_NEXT(bytes, i, text.size(), character);
        parts.Add(text.substr(start, i - start), character);
    }
    return parts.Take();
}

} // namespace folimark
