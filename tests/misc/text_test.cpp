#include "misc/text.h"

#include "misc/utf8.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace nrd::misc {

namespace {

TEST(text, malformed_utf8_becomes_one_replacement_for_each_byte)
{
    struct {
        std::string_view bytes;
        std::u32string_view points;
    } const cases[] = {
        {"\x80", U"\xFFFD"},                               // continuation without a lead
        {"a\xC3", U"a\xFFFD"},                             // cut short
        {"\xE2\x82z", U"\xFFFD\xFFFDz"},                   // ends in the middle
        {"\xC0\xAF", U"\xFFFD\xFFFD"},                     // overlong
        {"\xE0\x80\x80", U"\xFFFD\xFFFD\xFFFD"},           // overlong
        {"\xF4\x90\x80\x80", U"\xFFFD\xFFFD\xFFFD\xFFFD"}, // beyond the last code point
        {"\xFF\xFE", U"\xFFFD\xFFFD"},                     // never in UTF-8
        {"\xC3\xC3\xA9", U"\xFFFD\u00E9"},                 // the next character is not swallowed
        {std::string_view("a\0b", 3), std::u32string_view(U"a\0b", 3)},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(to_text32(each.bytes), each.points) << testing::PrintToString(each.bytes);
        EXPECT_EQ(count_code_points(each.bytes), each.points.size());
    }
    EXPECT_EQ(to_utf8(text32{0x110000}), "\xEF\xBF\xBD");
    EXPECT_EQ(to_utf16(text32{0x110000}), u"\xFFFD");
}

TEST(text, every_text_survives_the_other_encodings)
{
    const std::u32string_view cases[] = {
        U"",
        U"plain",
        U"\x7F\x80\x7FF\x800\xFFFF",
        U"\x10000\x1F600\x10FFFF",
        U"\u0416\u4E2D\u00DF",
        U"\xD800",
        U"x\xDC00y",
        U"\xDC00\xD800", // surrogates on their own
    };
    for (const std::u32string_view each : cases) {
        EXPECT_EQ(to_text32(to_utf8(each)), each);
        EXPECT_EQ(to_text32(to_utf16(each)), each);
        EXPECT_EQ(to_utf16(to_utf8(each)), to_utf16(each));
        EXPECT_EQ(to_utf8(to_utf16(each)), to_utf8(each));
    }
    EXPECT_EQ(to_utf16(U"\x1F600"), u"\xD83D\xDE00");
    EXPECT_EQ(to_utf8(U"\u20AC\x1F600"), "\xE2\x82\xAC\xF0\x9F\x98\x80");
}

TEST(text, split_keeps_empty_pieces)
{
    using pieces = std::vector<std::string>;
    EXPECT_EQ(split("", ':'), pieces());
    EXPECT_EQ(split("a", ':'), pieces({"a"}));
    EXPECT_EQ(split("a::b", ':'), pieces({"a", "", "b"}));
    EXPECT_EQ(split("a:", ':'), pieces({"a", ""}));
    EXPECT_EQ(split(":", ':'), pieces({"", ""}));
    EXPECT_EQ(split(U"\\a\\", U'\\'), std::vector<text32>({U"", U"a", U""}));
}

TEST(text, separators_prefixes_and_case)
{
    EXPECT_EQ(replace_separators(U"a/b\\c//"), U"a\\b\\c\\\\");
    EXPECT_EQ(collapse_repeated(U"\\\\server\\\\\\share//\\", U'\\'), U"\\server\\share//\\");
    EXPECT_EQ(collapse_repeated(U"", U'\\'), U"");
    EXPECT_TRUE(starts_with(std::string_view("Adobe Illustrator 30"), "Adobe Illustrator "));
    EXPECT_FALSE(starts_with(std::string_view("Adobe"), "Adobe Illustrator"));
    text32 mixed = U"ABC xyz \u00C4\u0416";
    to_lower(mixed);
    EXPECT_EQ(mixed, U"abc xyz \u00C4\u0416");
}

TEST(text, escaping_protects_from_expansion_and_comes_off_again)
{
    const text32 typed = U"${A} costs $5 {really}";
    EXPECT_EQ(escape_expansion(typed),
              U"~~dollar~~~~ocb~~A~~ccb~~ costs ~~dollar~~5 ~~ocb~~really~~ccb~~");
    EXPECT_EQ(unescape_expansion(escape_expansion(typed)), typed);
    EXPECT_EQ(unescape_expansion(U"a typed ~~dollar~~ too"), U"a typed $ too");
}

TEST(text, hexadecimal)
{
    EXPECT_EQ(to_hex({0x00, 0x0F, 0xA5, 0xFF}), "000fa5ff");
    EXPECT_EQ(from_hex("000fA5fF"), std::vector<std::uint8_t>({0x00, 0x0F, 0xA5, 0xFF}));
    EXPECT_TRUE(from_hex("").empty());
    const auto complaint = [](std::string_view text) {
        try {
            from_hex(text);
        } catch (const std::invalid_argument& error) {
            return std::string(error.what());
        }
        return std::string();
    };
    EXPECT_EQ(complaint("abc"), "odd length");
    EXPECT_EQ(complaint("0g"), "invalid hex digit");
    EXPECT_EQ(complaint(" 1"), "invalid hex digit");
}

TEST(text, names_are_compared_by_the_capitals_that_windows_knows)
{
    EXPECT_EQ(name_key(u"file_Z.txt"), u"FILE_Z.TXT");
    EXPECT_EQ(name_key(u"\u00E9\u0436\u00FF\u03C3"), u"\u00C9\u0416\u0178\u03A3");
    // No pair of capital and small letter.
    const std::u16string alone = u"\u00DF\u00B5\u0131\u017F\u03C2\u01C5\xD83D";
    EXPECT_EQ(name_key(alone), alone);
    EXPECT_LT(name_key(u"Z"), name_key(u"_")); // capitals stand before the underscore
}

} // namespace

} // namespace nrd::misc
