#include "Phrase.h"

#include "Text.h"

#include <algorithm>

namespace folimark {
namespace {

bool IsAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

char UpperAscii(char byte) {
    return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - ('a' - 'A')) : byte;
}

/// The smaller, the rarer in names: letters by how common they are in European languages, digits and signs
/// between.
std::size_t Commonness(char byte) {
    constexpr std::string_view kFromRare = "qxzjwkyvpfbg,;!#$%&'()+=@[]{}~_-. 0123456789hmuldcotrsniae";
    return kFromRare.find(byte) + 1; // 0 for what doesn't stand there, which is rarest
}

} // namespace

Phrase::Phrase(std::string_view text) : folded_(FoldForSearch(text)) {
    const auto rarest = std::min_element(folded_.begin(), folded_.end(), [](char left, char right) {
        return Commonness(left) < Commonness(right);
    });
    rarest_ = static_cast<std::size_t>(rarest - folded_.begin());
}

/// The byte behind the first place where the phrase stands but for the case of ASCII letters; npos if there
/// is none.
std::size_t Phrase::EndIn(std::string_view text) const {
    const char small = folded_[rarest_];
    const char large = UpperAscii(small);
    std::size_t nextSmall = text.find(small, rarest_);
    std::size_t nextLarge = small == large ? std::string_view::npos : text.find(large, rarest_);
    for (;;) {
        std::size_t& next = nextSmall < nextLarge ? nextSmall : nextLarge;
        if (next == std::string_view::npos) {
            return next;
        }
        const std::string_view place = text.substr(next - rarest_, folded_.size());
        if (std::ranges::equal(place, folded_, {}, LowerAscii)) {
            return next - rarest_ + folded_.size();
        }
        next = text.find(text[next], next + 1);
    }
}

bool Phrase::IsIn(std::string_view text) const {
    if (folded_.empty()) {
        return false;
    }
    const std::size_t end = EndIn(text);
    // A letter's accent may be a character of its own, behind it.
    const bool standsAlone = end == text.size() || (end < text.size() && IsAscii(text[end]));
    if (standsAlone && FoldsByAscii(text.substr(0, end))) {
        return true;
    }
    return FoldsByAscii(text) ? end != std::string_view::npos
                              : FoldForSearch(text).find(folded_) != std::string::npos;
}

} // namespace folimark
