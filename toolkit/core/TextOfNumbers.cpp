#include "Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <unicode/uchar.h>
#include <unicode/utf8.h>

namespace folimark {
namespace {

/// More decimals than a Double has.
constexpr std::ptrdiff_t kMostDecimals = 20;
/// The digits of the largest Double, its sign, the point and the decimals.
constexpr std::size_t kLongestNumber = 350;

std::string Grouped(std::string_view digits) {
    std::string result;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        if (i > 0 && (digits.size() - i) % 3 == 0) {
            result += ',';
        }
        result += digits[i];
    }
    return result;
}

} // namespace

std::string Str(std::int64_t value) {
    return std::to_string(value);
}

std::string Chr(std::int64_t code) {
    if (code < UCHAR_MIN_VALUE || code > UCHAR_MAX_VALUE || U_IS_SURROGATE(code)) {
        return "";
    }
    std::array<std::uint8_t, U8_MAX_LENGTH> bytes{};
    std::size_t length = 0;
    U8_APPEND_UNSAFE(bytes, length, static_cast<UChar32>(code));
    return {reinterpret_cast<const char*>(bytes.data()), length};
}

std::string Format(double value, std::string_view mask) {
    const std::size_t point = std::min(mask.find('.'), mask.size());
    const std::string_view whole = mask.substr(0, point);
    const std::string_view decimals = mask.substr(std::min(point + 1, mask.size()));
    const auto precision = std::min(std::count(decimals.begin(), decimals.end(), '0')
                                        + std::count(decimals.begin(), decimals.end(), '#'),
                                    kMostDecimals);

    // Unlike printf, to_chars writes a point in every locale.
    std::array<char, kLongestNumber> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value),
                                       std::chars_format::fixed, static_cast<int>(precision));
    const std::string_view digits(buffer.data(), static_cast<std::size_t>(written.ptr - buffer.data()));
    const bool negative = value < 0 && digits.find_first_of("123456789i") != std::string_view::npos;
    if (!std::isfinite(value)) {
        return std::string(negative ? "-" : "").append(digits);
    }

    const std::size_t digitsEnd = std::min(digits.find('.'), digits.size());
    std::string before(digits.substr(0, digitsEnd));
    const auto places = static_cast<std::size_t>(std::count(whole.begin(), whole.end(), '0'));
    before.insert(0, places > before.size() ? places - before.size() : 0, '0');
    if (whole.find(',') != std::string_view::npos) {
        before = Grouped(before);
    }
    return (negative ? "-" : "") + before.append(digits.substr(digitsEnd));
}

} // namespace folimark
