#include "misc/utf8.h"

namespace nrd::misc {

namespace {

constexpr char32_t replacement_character = 0xFFFD;
constexpr char32_t last_code_point = 0x10FFFF;

/// What a first byte announces: how many bytes follow it, its own bits, and the smallest code
/// point that may be written so (anything less is an overlong form).
struct utf8_lead {
    int trailing = -1;
    char32_t bits = 0;
    char32_t smallest = 0;
};

utf8_lead read_lead(unsigned char byte)
{
    if (byte < 0x80) {
        return {0, byte, 0};
    }
    if (byte >= 0xC0 && byte < 0xE0) {
        return {1, static_cast<char32_t>(byte & 0x1F), 0x80};
    }
    if (byte >= 0xE0 && byte < 0xF0) {
        return {2, static_cast<char32_t>(byte & 0x0F), 0x800};
    }
    if (byte >= 0xF0 && byte < 0xF8) {
        return {3, static_cast<char32_t>(byte & 0x07), 0x10000};
    }
    return {};
}

} // namespace

char32_t next_code_point(std::string_view utf8, std::size_t& at)
{
    const utf8_lead lead = read_lead(static_cast<unsigned char>(utf8[at]));
    const std::size_t first = at++;
    if (lead.trailing < 0 || utf8.size() - first <= static_cast<std::size_t>(lead.trailing)) {
        return replacement_character;
    }
    char32_t point = lead.bits;
    for (int i = 1; i <= lead.trailing; ++i) {
        const auto byte = static_cast<unsigned char>(utf8[first + static_cast<std::size_t>(i)]);
        if ((byte & 0xC0) != 0x80) {
            return replacement_character;
        }
        point = (point << 6) | (byte & 0x3F);
    }
    if (point < lead.smallest || point > last_code_point) {
        return replacement_character;
    }
    at = first + 1 + static_cast<std::size_t>(lead.trailing);
    return point;
}

std::size_t count_code_points(std::string_view utf8)
{
    std::size_t count = 0;
    for (std::size_t at = 0; at < utf8.size(); ++count) {
        next_code_point(utf8, at);
    }
    return count;
}

} // namespace nrd::misc
