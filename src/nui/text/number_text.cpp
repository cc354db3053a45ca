#include "nui/text/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

namespace nui {

namespace {

constexpr int MostDecimals = 9;
constexpr std::string_view White = " \t\r\n";

std::string_view trimmed(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(White), text.size()));
    return text.substr(0, text.find_last_not_of(White) + 1);
}

} // namespace

std::string numberText(double value, int decimals, bool decimalComma)
{
    std::array<char, 400> digits = {}; // the largest double has 309 in front of the point
    const auto [end, error] =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed,
                      std::clamp(decimals, 0, MostDecimals));
    if (error != std::errc())
        return {};
    std::string text(digits.data(), end);
    // What is rounded to nothing has no sign.
    if (text.find_first_not_of("-0.") == std::string::npos)
        text.erase(0, text.front() == '-' ? 1 : 0);
    if (decimalComma)
        std::replace(text.begin(), text.end(), '.', ',');
    return text;
}

std::optional<double> numberFrom(std::string_view text)
{
    std::string digits(trimmed(text));
    std::replace(digits.begin(), digits.end(), ',', '.');
    if (digits.find_first_not_of("+-.0123456789") != std::string::npos)
        return std::nullopt;
    const bool hasPlus = digits.size() > 1 && digits[0] == '+' && digits[1] != '-';
    const char* const first = digits.data() + (hasPlus ? 1 : 0);
    const char* const last = digits.data() + digits.size();
    double value = 0;
    const auto [end, error] = std::from_chars(first, last, value, std::chars_format::fixed);
    if (error != std::errc() || end != last)
        return std::nullopt;
    return value;
}

} // namespace nui
