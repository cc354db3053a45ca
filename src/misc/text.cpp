#include "misc/text.h"

#include "misc/utf8.h"

#include <algorithm>
#include <stdexcept>

namespace nrd::misc {

namespace {

constexpr char32_t replacement_character = 0xFFFD;
constexpr char32_t last_code_point = 0x10FFFF;

bool is_lead_surrogate(char32_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}
bool is_trail_surrogate(char32_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

char to_byte(char32_t value)
{
    return static_cast<char>(static_cast<unsigned char>(value));
}

void append_utf8(std::string& out, char32_t point)
{
    if (point > last_code_point) {
        point = replacement_character;
    }
    if (point < 0x80) {
        out += to_byte(point);
        return;
    }
    if (point < 0x800) {
        out += to_byte(0xC0 | (point >> 6));
    } else {
        if (point < 0x10000) {
            out += to_byte(0xE0 | (point >> 12));
        } else {
            out += to_byte(0xF0 | (point >> 18));
            out += to_byte(0x80 | ((point >> 12) & 0x3F));
        }
        out += to_byte(0x80 | ((point >> 6) & 0x3F));
    }
    out += to_byte(0x80 | (point & 0x3F));
}

void append_utf16(std::u16string& out, char32_t point)
{
    if (point > last_code_point) {
        point = replacement_character;
    }
    if (point < 0x10000) {
        out += static_cast<char16_t>(point);
        return;
    }
    out += static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10));
    out += static_cast<char16_t>(0xDC00 + ((point - 0x10000) & 0x3FF));
}

template <class Char>
std::vector<std::basic_string<Char>> split_at(std::basic_string_view<Char> text, Char delimiter)
{
    std::vector<std::basic_string<Char>> pieces;
    if (text.empty()) {
        return pieces;
    }
    for (std::size_t begin = 0;;) {
        const std::size_t end = text.find(delimiter, begin);
        pieces.emplace_back(text.substr(begin, end - begin));
        if (end == text.npos) {
            return pieces;
        }
        begin = end + 1;
    }
}

template <class Char> void lower_ascii(std::basic_string<Char>& text)
{
    for (Char& c : text) {
        if (c >= Char('A') && c <= Char('Z')) {
            c = static_cast<Char>(c - Char('A') + Char('a'));
        }
    }
}

text32 replace_all(std::u32string_view text, std::u32string_view from, std::u32string_view to)
{
    text32 result;
    std::size_t at = 0;
    for (std::size_t hit; (hit = text.find(from, at)) != text.npos; at = hit + from.size()) {
        result.append(text, at, hit - at).append(to);
    }
    return result.append(text, at);
}

std::uint8_t hex_digit(char c)
{
    if (c >= '0' && c <= '9') {
        return static_cast<std::uint8_t>(c - '0');
    }
    if (c >= 'a' && c <= 'f') {
        return static_cast<std::uint8_t>(c - 'a' + 10);
    }
    if (c >= 'A' && c <= 'F') {
        return static_cast<std::uint8_t>(c - 'A' + 10);
    }
    throw std::invalid_argument("invalid hex digit");
}

} // namespace

std::string to_utf8(std::u32string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (const char32_t point : text) {
        append_utf8(out, point);
    }
    return out;
}

std::string to_utf8(std::u16string_view text)
{
    return to_utf8(to_text32(text));
}

std::u16string to_utf16(std::u32string_view text)
{
    std::u16string out;
    out.reserve(text.size());
    for (const char32_t point : text) {
        append_utf16(out, point);
    }
    return out;
}

std::u16string to_utf16(std::string_view utf8)
{
    return to_utf16(to_text32(utf8));
}

text32 to_text32(std::string_view utf8)
{
    text32 out;
    out.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        out += next_code_point(utf8, at);
    }
    return out;
}

text32 to_text32(std::u16string_view text)
{
    text32 out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char32_t unit = text[i];
        if (is_lead_surrogate(unit) && i + 1 < text.size() && is_trail_surrogate(text[i + 1])) {
            const char32_t trail = text[++i];
            out += char32_t{0x10000 + ((unit - 0xD800) << 10) + (trail - 0xDC00)};
        } else {
            out += unit;
        }
    }
    return out;
}

std::vector<std::string> split(std::string_view text, char delimiter)
{
    return split_at(text, delimiter);
}

std::vector<text32> split(std::u32string_view text, char32_t delimiter)
{
    return split_at(text, delimiter);
}

text32 replace_char(std::u32string_view text, char32_t from, char32_t to)
{
    text32 result(text);
    std::replace(result.begin(), result.end(), from, to);
    return result;
}

std::string replace_char(std::string_view text, char from, char to)
{
    std::string result(text);
    std::replace(result.begin(), result.end(), from, to);
    return result;
}

text32 replace_separators(std::u32string_view text)
{
    return replace_char(text, U'/', U'\\');
}

text32 collapse_repeated(std::u32string_view text, char32_t character)
{
    text32 result(text);
    const auto both = [character](char32_t a, char32_t b) { return a == character && b == a; };
    result.erase(std::unique(result.begin(), result.end(), both), result.end());
    return result;
}

void to_lower(std::string& text)
{
    lower_ascii(text);
}

void to_lower(text32& text)
{
    lower_ascii(text);
}

text32 escape_expansion(std::u32string_view text)
{
    const text32 dollars = replace_all(text, U"$", U"~~dollar~~");
    return replace_all(replace_all(dollars, U"{", U"~~ocb~~"), U"}", U"~~ccb~~");
}

text32 unescape_expansion(std::u32string_view text)
{
    const text32 dollars = replace_all(text, U"~~dollar~~", U"$");
    return replace_all(replace_all(dollars, U"~~ocb~~", U"{"), U"~~ccb~~", U"}");
}

std::string to_hex(const std::vector<std::uint8_t>& bytes)
{
    constexpr std::string_view digits = "0123456789abcdef";
    std::string out;
    out.reserve(bytes.size() * 2);
    for (const std::uint8_t byte : bytes) {
        out += digits[byte >> 4];
        out += digits[byte & 0x0F];
    }
    return out;
}

std::vector<std::uint8_t> from_hex(std::string_view text)
{
    if (text.size() % 2 != 0) {
        throw std::invalid_argument("odd length");
    }
    std::vector<std::uint8_t> bytes;
    bytes.reserve(text.size() / 2);
    for (std::size_t i = 0; i < text.size(); i += 2) {
        bytes.push_back(
            static_cast<std::uint8_t>(hex_digit(text[i]) << 4 | hex_digit(text[i + 1])));
    }
    return bytes;
}

std::u16string name_key(std::u16string_view name)
{
    std::u16string key(name);
    std::transform(key.begin(), key.end(), key.begin(), upper_case);
    return key;
}

} // namespace nrd::misc
