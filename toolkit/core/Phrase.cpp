#include "Phrase.h"

#include "Text.h"

#include <algorithm>
#include <cstring>

namespace folimark {
namespace {

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

bool Phrase::IsInLowered(std::string_view text) const {
    for (std::size_t at = rarest_; at < text.size(); ++at) {
        const void* const found = std::memchr(text.data() + at, folded_[rarest_], text.size() - at);
        if (found == nullptr) {
            break;
        }
        at = static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
        if (text.substr(at - rarest_).starts_with(folded_)) {
            return true;
        }
    }
    return false;
}

bool Phrase::IsIn(std::string_view text) {
    if (folded_.empty()) {
        return false;
    }
    if (!FoldsByAscii(text)) {
        return FoldForSearch(text).find(folded_) != std::string::npos;
    }
    if (lowered_.size() < text.size()) {
        lowered_.resize(text.size());
    }
    std::transform(text.begin(), text.end(), lowered_.begin(), LowerAscii);
    return IsInLowered(std::string_view(lowered_).substr(0, text.size()));
}

} // namespace folimark
