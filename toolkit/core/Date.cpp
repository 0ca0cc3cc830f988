#include "Date.h"

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
    std::string text = "0000-00-00";
    const auto write = [&text](std::size_t end, std::int64_t number) {
        for (; number > 0; number /= 10) {
            text[--end] = static_cast<char>('0' + number % 10);
        }
    };
    write(4, year);
    write(7, day.tm_mon + 1);
    write(10, day.tm_mday);
    return text;
}

} // namespace folimark
