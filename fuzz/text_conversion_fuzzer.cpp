// The input is a text that should be UTF-8. What it is turned into is well-formed, and comes back
// unchanged from all encodings; fonts are given a character for each of its own.

#include "check.h"
#include "misc/text.h"
#include "nui/text/shown_text.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace {

bool is_surrogate(char32_t c)
{
    return c >= 0xD800 && c < 0xE000;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    using namespace nrd::misc;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const text32 text = to_text32(bytes);
    check(text.size() <= bytes.size(), "no character has less than a byte");
    check(std::all_of(text.begin(), text.end(), [](char32_t c) { return c <= 0x10FFFF; }),
          "every character is one");
    const std::string utf8 = to_utf8(text);
    check(to_text32(utf8) == text, "UTF-8 comes back");
    check(to_utf16(bytes) == to_utf16(text), "there is one way to UTF-16");
    if (text.find(U'\uFFFD') == text32::npos) {
        check(utf8 == bytes, "what is well-formed stays as it is");
    }
    if (std::none_of(text.begin(), text.end(), is_surrogate)) {
        check(to_text32(to_utf16(text)) == text, "UTF-16 comes back");
        check(to_utf8(to_utf16(text)) == utf8, "there is one way from UTF-16");
    }

    const text32 shown = nui::shownText(bytes);
    check(shown.size() == text.size(), "each character shows as one");
    check(std::none_of(shown.begin(), shown.end(),
                       [](char32_t c) { return is_surrogate(c) || (c < U' ' && c != U'\n'); }),
          "fonts get what they can draw");
    return 0;
}
