#include "misc/text.h"

#include <windows.h>

namespace nrd::misc {

char16_t upper_case(char16_t unit)
{
    if (unit < 0x80) {
        return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - u'a' + u'A') : unit;
    }
    wchar_t text[1] = {static_cast<wchar_t>(unit)};
    CharUpperBuffW(text, 1);
    return static_cast<char16_t>(text[0]);
}

} // namespace nrd::misc
