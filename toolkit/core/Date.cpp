#include "Date.h"

#include <array>
#include <ctime>

namespace folimark {

std::string Date::SQLDate() const {
    const std::time_t seconds = seconds_;
    std::tm day{};
    // Years that don't fit into tm's integer fail.
    const bool known = localtime_r(&seconds, &day) != nullptr;
    const std::int64_t year = known ? std::int64_t{day.tm_year} + 1900 : seconds_;
    if (year < 1) {
        return "0001-01-01";
    }
    if (year > 9999) {
        return "9999-12-31";
    }
    std::array<char, 16> text{};
    std::strftime(text.data(), text.size(), "-%m-%d", &day);
    std::string digits = std::to_string(year);
    return digits.insert(0, 4 - digits.size(), '0') + text.data();
}

} // namespace folimark
