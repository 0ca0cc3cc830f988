#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace folimark {

/// Keeps rows of a few texts each, without gaps, in large blocks of memory. A row is known by where it
/// begins.
class RowStore {
  public:
    /// The row of these texts.
    const char* Add(std::span<const std::string_view> texts);
    /// Changes a row's last text where it stands. False if something stands behind it, or there is no room.
    bool ChangeLast(const char* row, std::string_view text);
    /// A row that is no longer wanted. Its memory is used again if it is the latest, and else lost (Waste).
    void Remove(const char* row);
    /// How many bytes are lost, and how many there are.
    std::size_t Waste() const { return waste_; }
    std::size_t Size() const { return size_; }

    static std::size_t Count(const char* row) { return static_cast<unsigned char>(*row); }
    /// "" behind the last text.
    static std::string_view Text(const char* row, std::size_t index);

    static constexpr std::size_t kMostTexts = 255;

  private:
    struct Block {
        std::unique_ptr<char[]> bytes;
        std::size_t size;
        std::size_t used;
    };

    char* Room(std::size_t size);
    bool IsLatest(const char* row) const;

    std::vector<Block> blocks_;
    std::size_t waste_ = 0;
    std::size_t size_ = 0;
};

} // namespace folimark
