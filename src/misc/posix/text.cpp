#include "misc/text.h"

#include <cwctype>
#include <locale.h>

namespace nrd::misc {

char16_t upper_case(char16_t unit)
{
    if (unit < 0x80) {
        return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - u'a' + u'A') : unit;
    }
    // The process's own locale is left alone: it may know ASCII only.
    static const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    if (unicode == nullptr) {
        return unit;
    }
    // Only pairs count: final sigma, dotless i and the like stay, as their capital has another
    // small letter.
    const wint_t upper = towupper_l(unit, unicode);
    const bool is_pair = upper <= 0xFFFF && towlower_l(upper, unicode) == unit;
    return is_pair ? static_cast<char16_t>(upper) : unit;
}

} // namespace nrd::misc
