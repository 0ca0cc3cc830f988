#include "Text.h"

#include "LetterKeys.h"

#include <algorithm>
#include <array>
#include <future>
#include <numeric>
#include <utility>

namespace folimark {
namespace {

constexpr std::size_t kWord = sizeof(std::uint64_t);

struct Entry {
    std::uint64_t word; // of the key, at the depth that is being sorted
    const char* key;
    std::size_t index;
};

/// Entries whose keys are equal up to `depth` bytes, in the order of their indexes where their keys are
/// equal.
struct Range {
    std::size_t first;
    std::size_t last; // behind the last entry
    std::size_t depth;
};

/// Neighbours of one word, which stay neighbours.
struct Group {
    std::uint64_t word;
    std::size_t first;
    std::size_t last;
};

/// Sorts by one word of the keys after the other, so that a comparison looks at a number only. Paths have
/// long beginnings in common, and mostly stand together already where they do: so what is sorted are groups
/// of neighbours, not entries.
class Sorter {
  public:
    Sorter(const std::vector<std::string_view>& texts, std::span<const char* const> keys)
        : texts_(texts), entries_(texts.size()) {
        for (std::size_t i = 0; i < keys.size(); ++i) {
            entries_[i] = {0, keys[i], i};
        }
        // Keys take longer to make than to sort, and are as quickly made on a thread beside this one. If the
        // system has none to give, this one makes them all.
        const bool areMany = texts.size() - keys.size() >= kMany;
        const std::size_t middle = areMany ? std::midpoint(keys.size(), texts.size()) : keys.size();
        std::future<void> beside =
            std::async(areMany ? std::launch::async | std::launch::deferred : std::launch::deferred,
                       [&] { MakeKeys(keys_[1], keys.size(), middle); });
        MakeKeys(keys_[0], middle, texts.size());
        beside.get();
        ranges_.push_back({0, entries_.size(), 0});
    }

    std::vector<bool> Repeats() { return std::move(repeats_); }

    std::vector<std::size_t> Order() {
        while (!ranges_.empty()) {
            const Range range = ranges_.back();
            ranges_.pop_back();
            GatherGroups(range);
            SortGroups(range);
            Divide(range);
        }
        std::vector<std::size_t> order;
        order.reserve(entries_.size());
        for (const Entry& entry : entries_) {
            order.push_back(entry.index);
        }
        return order;
    }

  private:
    /// Texts that are worth a thread.
    static constexpr std::size_t kMany = 10'000;

    void MakeKeys(LetterKeys& keys, std::size_t first, std::size_t last) {
        for (std::size_t i = first; i < last; ++i) {
            entries_[i] = {0, keys.Add(texts_[i]), i};
        }
    }
    void GatherGroups(const Range& range);
    void SortGroups(const Range& range);
    void Divide(const Range& range);
    void SortTies(std::size_t first, std::size_t last);

    const std::vector<std::string_view>& texts_;
    std::array<LetterKeys, 2> keys_;
    std::vector<Entry> entries_;
    std::vector<bool> repeats_ = std::vector<bool>(texts_.size());
    std::vector<Range> ranges_;
    // Memory that is used again for each range.
    std::vector<Group> groups_;
    std::vector<Entry> sorted_;
};

void Sorter::GatherGroups(const Range& range) {
    groups_.clear();
    for (std::size_t i = range.first; i < range.last; ++i) {
        Entry& entry = entries_[i];
        entry.word = LetterKeys::WordAt(entry.key + range.depth);
        if (groups_.empty() || groups_.back().word != entry.word) {
            groups_.push_back({entry.word, i, i});
        }
        groups_.back().last = i + 1;
    }
}

void Sorter::SortGroups(const Range& range) {
    const auto isLess = [](const Group& left, const Group& right) {
        return left.word != right.word ? left.word < right.word : left.first < right.first;
    };
    if (std::is_sorted(groups_.begin(), groups_.end(), isLess)) {
        return;
    }
    std::sort(groups_.begin(), groups_.end(), isLess);
    sorted_.clear();
    for (const Group& group : groups_) {
        sorted_.insert(sorted_.end(), entries_.data() + group.first, entries_.data() + group.last);
    }
    std::copy(sorted_.begin(), sorted_.end(), entries_.data() + range.first);
}

void Sorter::Divide(const Range& range) {
    std::size_t first = range.first;
    for (std::size_t i = 0; i < groups_.size();) {
        const std::uint64_t word = groups_[i].word;
        std::size_t last = first;
        for (; i < groups_.size() && groups_[i].word == word; ++i) {
            last += groups_[i].last - groups_[i].first;
        }
        const bool keyEnds = (word & 0xFFU) == 0;
        if (last - first > 1 && keyEnds) {
            SortTies(first, last);
        } else if (last - first > 1) {
            ranges_.push_back({first, last, range.depth + kWord});
        }
        first = last;
    }
}

/// Entries whose letters are equal: accents, case and bytes tell them apart, if anything does.
void Sorter::SortTies(std::size_t first, std::size_t last) {
    const auto textOf = [this](const Entry& entry) { return texts_[entry.index]; };
    Entry* const begin = entries_.data() + first;
    Entry* const end = entries_.data() + last;
    if (std::all_of(begin, end, [&](const Entry& entry) { return textOf(entry) == textOf(*begin); })) {
        std::fill(repeats_.begin() + static_cast<std::ptrdiff_t>(first + 1),
                  repeats_.begin() + static_cast<std::ptrdiff_t>(last), true);
        return;
    }
    std::vector<std::pair<std::string, Entry>> keyed;
    for (const Entry* entry = begin; entry != end; ++entry) {
        keyed.emplace_back(SortKey(textOf(*entry)), *entry);
    }
    std::sort(keyed.begin(), keyed.end(), [&](const auto& left, const auto& right) {
        const int order = left.first.compare(right.first);
        const int bytes = order != 0 ? order : textOf(left.second).compare(textOf(right.second));
        return bytes != 0 ? bytes < 0 : left.second.index < right.second.index;
    });
    std::transform(keyed.begin(), keyed.end(), begin, [](const auto& pair) { return pair.second; });
    for (std::size_t i = first + 1; i < last; ++i) {
        repeats_[i] = textOf(entries_[i]) == textOf(entries_[i - 1]);
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

std::vector<std::size_t> SortedOrder(const std::vector<std::string_view>& texts, std::vector<bool>* repeats,
                                     std::span<const char* const> keys) {
    Sorter sorter(texts, keys);
    std::vector<std::size_t> order = sorter.Order();
    if (repeats != nullptr) {
        *repeats = sorter.Repeats();
    }
    return order;
}

} // namespace folimark
