#include "nui/reader/value_text.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace nui {

namespace {

struct Unit {
    std::string_view text;
    SizeMode mode;
    float divisor;
};

constexpr std::array<Unit, 11> Units = {
    Unit{"", Px, 1},           Unit{"px", Px, 1},           Unit{"pt", Pt, 1},
    Unit{"sp", Sp, 1},         Unit{"%", Percent, 100},     Unit{"%s", DisplayPercent, 100},
    Unit{"?", Weight, 1},      Unit{"content", Content, 1}, Unit{"small", Small, 1},
    Unit{"medium", Medium, 1}, Unit{"large", Large, 1}};

float numberOf(std::string_view digits)
{
    float number = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return result.ec == std::errc() ? number : 0;
}

int hexDigit(char letter)
{
    if (letter >= '0' && letter <= '9')
        return letter - '0';
    if (letter >= 'a' && letter <= 'f')
        return letter - 'a' + 10;
    if (letter >= 'A' && letter <= 'F')
        return letter - 'A' + 10;
    return -1;
}

} // namespace

bool parseSize(std::string_view text, Size& size)
{
    const std::size_t length = std::min(text.find_first_not_of("0123456789."), text.size());
    size.value = length == 0 ? 1 : numberOf(text.substr(0, length));
    const std::string_view rest = text.substr(length);
    for (const Unit& unit : Units) {
        if (rest == unit.text) {
            size.value /= unit.divisor;
            size.mode = unit.mode;
            return true;
        }
    }
    return false;
}

Color parseHexColor(std::string_view text)
{
    std::uint32_t number = 0;
    for (std::size_t index = 1; index < text.size() && hexDigit(text[index]) >= 0; ++index)
        number = number << 4U | static_cast<std::uint32_t>(hexDigit(text[index]));
    const std::uint32_t red = number >> 16U & 0xFFU;
    const std::uint32_t green = number >> 8U & 0xFFU;
    const std::uint32_t blue = number & 0xFFU;
    return red | green << 8U | blue << 16U;
}

} // namespace nui
