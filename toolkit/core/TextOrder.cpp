#include "Text.h"

#include "Exceptions.h"

#include <algorithm>
#include <cstring>
#include <endian.h>
#include <functional>
#include <memory>
#include <unicode/ucol.h>
#include <unicode/ustring.h>

namespace folimark {
namespace {

constexpr std::size_t kWord = sizeof(std::uint64_t);
constexpr std::size_t kNone = static_cast<std::size_t>(-1);
/// What stands in for bytes that are no UTF-8.
constexpr std::int32_t kReplacement = 0xFFFD;

using Collator = std::unique_ptr<UCollator, decltype(&ucol_close)>;

Collator OpenRootCollator(UColAttributeValue strength) {
    UErrorCode error = U_ZERO_ERROR;
    Collator collator(ucol_open("", &error), &ucol_close);
    if (U_FAILURE(error)) {
        throw RuntimeException(std::string("The order of texts can't be had: ") + u_errorName(error) + ".");
    }
    ucol_setStrength(collator.get(), strength);
    return collator;
}

/// Puts letters before accents before case.
const UCollator* RootCollator() {
    static const Collator collator = OpenRootCollator(UCOL_TERTIARY);
    return collator.get();
}

/// Knows letters alone. Its keys take half the time and room, and few texts need more to be told apart.
const UCollator* LettersCollator() {
    static const Collator collator = OpenRootCollator(UCOL_PRIMARY);
    return collator.get();
}

/// Makes sort keys, in memory that it uses again for each.
class KeyMaker {
  public:
    explicit KeyMaker(const UCollator* collator) : collator_(collator) {}

    /// The key without its final NUL. It holds until the next one is made.
    std::string_view Key(std::string_view text) {
        wide_.resize(text.size());
        std::int32_t length = 0;
        UErrorCode error = U_ZERO_ERROR;
        u_strFromUTF8WithSub(wide_.data(), static_cast<std::int32_t>(wide_.size()), &length, text.data(),
                             static_cast<std::int32_t>(text.size()), kReplacement, nullptr, &error);
        for (;;) {
            const auto size = static_cast<std::size_t>(
                ucol_getSortKey(collator_, wide_.data(), length, reinterpret_cast<std::uint8_t*>(key_.data()),
                                static_cast<std::int32_t>(key_.size())));
            if (size <= key_.size()) {
                return std::string_view(key_).substr(0, std::max<std::size_t>(size, 1) - 1);
            }
            key_.resize(size);
        }
    }

  private:
    const UCollator* collator_;
    std::u16string wide_;
    std::string key_ = std::string(256, '\0');
};

/// The keys of many texts by their letters, one behind the other, each filled up with NULs to whole words,
/// with one at least.
class KeyStore {
  public:
    explicit KeyStore(const std::vector<std::string_view>& texts) : texts_(texts) {
        std::size_t bytes = 0;
        for (const std::string_view text : texts) {
            bytes += text.size() + kWord;
        }
        keys_.reserve(bytes); // about what the keys take if no text is repeated
    }

    /// Where the key of a text is. Columns of dates or kinds repeat few texts, so the latest texts' keys are
    /// found again, one for each slot of a small table.
    std::size_t PlaceOf(std::size_t index) {
        const std::size_t hash = std::hash<std::string_view>()(texts_[index]);
        Slot& slot = slots_[hash % slots_.size()];
        if (slot.index == kNone || slot.hash != hash || texts_[slot.index] != texts_[index]) {
            slot = {hash, index, keys_.size()};
            keys_.append(maker_.Key(texts_[index]));
            keys_.append(kWord - keys_.size() % kWord, '\0');
        }
        return slot.place;
    }

    /// Eight bytes of a key as a number that is ordered as they are.
    std::uint64_t WordAt(std::size_t place) const {
        std::uint64_t word = 0;
        std::memcpy(&word, keys_.data() + place, kWord);
        return be64toh(word);
    }

  private:
    struct Slot {
        std::size_t hash = 0;
        std::size_t index = kNone;
        std::size_t place = 0;
    };

    const std::vector<std::string_view>& texts_;
    KeyMaker maker_{LettersCollator()};
    std::string keys_;
    std::vector<Slot> slots_ = std::vector<Slot>(std::size_t{1} << 14U);
};

struct Entry {
    std::uint64_t word; // of the key, at the depth that is being sorted
    std::size_t key;
    std::size_t index;
};

/// Entries whose keys are equal up to `depth` bytes.
struct Run {
    std::size_t first;
    std::size_t last; // behind the run's last entry
    std::size_t depth;
};

/// Entries whose letters are equal: accents, case, bytes, and at last their places, tell them apart.
void SortTies(Entry* first, Entry* last, const std::vector<std::string_view>& texts) {
    std::sort(first, last, [&texts](const Entry& left, const Entry& right) {
        const int order = left.key == right.key ? 0 : CompareForSort(texts[left.index], texts[right.index]);
        return order != 0 ? order < 0 : left.index < right.index;
    });
}

/// Sorts by one word of the keys after the other, so that a comparison looks at the entries only. Paths have
/// long beginnings in common; a comparison of whole keys would read them again and again.
void SortByKeys(std::vector<Entry>& entries, const KeyStore& keys,
                const std::vector<std::string_view>& texts) {
    std::vector<Run> runs{{0, entries.size(), 0}};
    while (!runs.empty()) {
        const Run run = runs.back();
        runs.pop_back();
        Entry* const first = entries.data() + run.first;
        Entry* const last = entries.data() + run.last;
        if (std::all_of(first, last, [first](const Entry& entry) { return entry.key == first->key; })) {
            SortTies(first, last, texts);
            continue;
        }
        for (Entry* entry = first; entry != last; ++entry) {
            entry->word = keys.WordAt(entry->key + run.depth);
        }
        std::sort(first, last, [](const Entry& left, const Entry& right) { return left.word < right.word; });
        for (Entry* equal = first; equal != last;) {
            Entry* const end =
                std::find_if(equal, last, [equal](const Entry& entry) { return entry.word != equal->word; });
            const bool keyEnds = (equal->word & 0xFFU) == 0;
            if (end - equal > 1 && keyEnds) {
                SortTies(equal, end, texts);
            } else if (end - equal > 1) {
                runs.push_back({static_cast<std::size_t>(equal - entries.data()),
                                static_cast<std::size_t>(end - entries.data()), run.depth + kWord});
            }
            equal = end;
        }
    }
}

} // namespace

std::string SortKey(std::string_view text) {
    return std::string(KeyMaker(RootCollator()).Key(text));
}

int CompareForSort(std::string_view left, std::string_view right) {
    const int order = SortKey(left).compare(SortKey(right));
    return order != 0 ? order : left.compare(right);
}

std::vector<std::size_t> SortedOrder(const std::vector<std::string_view>& texts) {
    KeyStore keys(texts);
    std::vector<Entry> entries;
    entries.reserve(texts.size());
    for (std::size_t index = 0; index < texts.size(); ++index) {
        entries.push_back({0, keys.PlaceOf(index), index});
    }
    SortByKeys(entries, keys, texts);
    std::vector<std::size_t> order;
    order.reserve(entries.size());
    for (const Entry& entry : entries) {
        order.push_back(entry.index);
    }
    return order;
}

} // namespace folimark
