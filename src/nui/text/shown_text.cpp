#include "nui/text/shown_text.h"

#include "misc/text.h"

#include <algorithm>

namespace nui {

namespace {

char32_t shown(char32_t character)
{
    constexpr char32_t FirstPrintable = U' ';
    constexpr char32_t Delete = 0x7F;
    constexpr char32_t FirstSurrogate = 0xD800;
    constexpr char32_t LastSurrogate = 0xDFFF;
    if (character == U'\n')
        return character;
    if (character < FirstPrintable || character == Delete)
        return U' ';
    if (character >= FirstSurrogate && character <= LastSurrogate)
        return 0xFFFD;
    return character;
}

} // namespace

std::u32string shownText(std::string_view utf8)
{
    std::u32string text = nrd::misc::to_text32(utf8);
    std::ranges::transform(text, text.begin(), shown);
    return text;
}

} // namespace nui
