#include "nui/text/font.h"

#include "nui/text/ftgl_font.h"
#include "nui/text/win_font.h"
#include "support/nui/font_files.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <numeric>
#include <string>
#include <vector>

namespace nui {

namespace {

constexpr float Wide = 1000000;

struct FontKind {
    const char* name;
    std::function<std::unique_ptr<Font>()> make;
};

/// What holds for both kinds of font, whatever their faces look like.
class any_font_test : public testing::TestWithParam<FontKind> {
protected:
    [[nodiscard]] TextSize measured(std::string_view text, float width = Wide,
                                    std::int32_t maxLines = 0, bool wrap = true) const
    {
        return font->measureText(
            {.text = text, .size = 14, .width = width, .maxLines = maxLines, .wordWrap = wrap});
    }
    [[nodiscard]] float lines(std::int32_t count) const { return font->getLineHeight(14, count); }

    std::unique_ptr<Font> font = GetParam().make();
};

INSTANTIATE_TEST_SUITE_P(
    fonts, any_font_test,
    testing::Values(FontKind{"of_the_system", [] { return std::make_unique<WinFont>(""); }},
                    FontKind{"from_a_file",
                             [] { return std::make_unique<FtglFont>(test::latinFontFile()); }}),
    [](const auto& kind) { return kind.param.name; });

TEST_P(any_font_test, wider_letters_and_larger_sizes_take_more_room)
{
    EXPECT_GT(measured("ii").width, 0);
    EXPECT_LT(measured("ii").width, measured("WW").width);
    EXPECT_LT(measured("WW").width, measured("WWW").width);
    const TextSize large = font->measureText({.text = "WW", .size = 28, .width = Wide});
    EXPECT_NEAR(large.width, 2 * measured("WW").width, 4);
    EXPECT_NEAR(large.height, 2 * measured("WW").height, 4);
    EXPECT_GT(font->getTextWidth("WW", 14), font->getTextWidth("ii", 14));
}

TEST_P(any_font_test, lines_end_at_line_feeds_and_at_the_width)
{
    EXPECT_GE(lines(1), 14);
    EXPECT_EQ(lines(3), 3 * lines(1));
    EXPECT_EQ(measured("one").height, lines(1));
    EXPECT_EQ(measured("one\ntwo").height, lines(2));
    EXPECT_EQ(measured("one\n\nthree").height, lines(3));

    const std::string text = "four words of text";
    const float half = measured(text).width * 0.7F;
    EXPECT_EQ(measured(text).height, lines(1));
    EXPECT_EQ(measured(text, half).height, lines(2));
    EXPECT_LE(measured(text, half).width, half + 3);
    // A word that is longer than the line wraps too.
    EXPECT_GE(measured("WWWWWWWWWW", measured("WWW").width).height, lines(3));
    EXPECT_EQ(measured(text, half, 0, false).height, lines(1));
    EXPECT_EQ(measured("one\ntwo", 5, 0, false).height, lines(2));
}

TEST_P(any_font_test, a_box_as_wide_as_the_text_needs_no_more_lines)
{
    for (const char* const text :
         {"f", "Install", "A sentence, of some words.", "i l i l j", "Съешь ещё"}) {
        const TextSize size = measured(text);
        EXPECT_EQ(measured(text, size.width).height, size.height) << text;
    }
}

TEST_P(any_font_test, more_lines_than_allowed_are_cut)
{
    const std::string text = "one two three four five six seven eight";
    const float width = measured("one two thr").width;
    EXPECT_GT(measured(text, width).height, lines(2));
    EXPECT_EQ(measured(text, width, 2).height, lines(2));
    EXPECT_EQ(measured(text, width, 1).height, lines(1));
    EXPECT_EQ(measured("one", width, 2).height, lines(1));
    EXPECT_EQ(measured("a\nb\nc\nd", Wide, 2).height, lines(2));
}

TEST_P(any_font_test, without_a_width_there_is_no_layout)
{
    EXPECT_FALSE(measured("text", 0).isValid());
    EXPECT_FALSE(measured("text", -5).isValid());
    EXPECT_TRUE(measured("text", 1).isValid());
    EXPECT_TRUE(measured("", 10).isValid());
}

TEST_P(any_font_test, what_is_no_character_takes_room_and_does_no_harm)
{
    const std::string control("\0\x01\t\r\x7F", 5);
    for (const std::string& text :
         {std::string("\xFF\xFE\x80"), std::string("\xC3"), std::string("\xE2\x82"),
          std::string("\xED\xA0\x80"), std::string("\xF0\x9F\x98\x80"), "a" + control + "b"}) {
        EXPECT_GT(measured(text).width, 0);
        EXPECT_EQ(measured(text).height, lines(1));
    }
    EXPECT_GT(measured("a\xFF"
                       "b")
                  .width,
              measured("ab").width);
    EXPECT_GT(measured(std::string(100000, 'x'), 500).height, lines(100));
}

TEST_P(any_font_test, lines_have_a_height_at_every_size)
{
    EXPECT_EQ(font->getLineHeight(-14, 1), lines(1));
    EXPECT_GT(font->getLineHeight(0, 1), 0);
    EXPECT_GT(font->getLineHeight(-32768, 1), 20000);
}

TEST_P(any_font_test, a_line_feed_is_a_blank_in_a_text_on_one_line)
{
    EXPECT_EQ(font->getTextWidth("one\ntwo", 14), font->getTextWidth("one two", 14));
}

TEST(win_font, a_box_is_rounded_up_to_pixels_for_measuring_as_for_its_picture)
{
    WinFont font("");
    const std::string text = "Some words";
    const TextSize whole = font.measureText({.text = text, .width = Wide});
    const auto linesAt = [&](float width) {
        return font.measureText({.text = text, .width = width}).height / font.getLineHeight(12, 1);
    };
    EXPECT_EQ(linesAt(whole.width - 0.75F), 1);
    EXPECT_EQ(linesAt(whole.width - 1), 2);
}

TEST(native_text, a_font_has_its_weight_and_slant)
{
    const std::string face = WinFont("").getFaceName();
    const auto drawn = [](const NativeFont& font) {
        const NativeFacePtr opened = openNativeFace(font, 20);
        Coverage picture(120, 30);
        EXPECT_TRUE(drawNativeText(*opened, "Weight", {}, picture));
        return picture.pixels;
    };
    const std::vector<std::uint8_t> plain = drawn({.face = face, .weight = 400});
    const std::vector<std::uint8_t> bold = drawn({.face = face, .weight = 700});
    EXPECT_EQ(drawn({.face = face}), plain);
    EXPECT_GT(std::accumulate(bold.begin(), bold.end(), 0),
              std::accumulate(plain.begin(), plain.end(), 0));
    EXPECT_NE(drawn({.face = face, .weight = 400, .italic = true}), plain);
}

TEST(native_text, a_picture_that_there_is_no_memory_for_is_none)
{
    const NativeFacePtr face = openNativeFace({.face = WinFont("").getFaceName()}, 14);
    Coverage picture(1, 1);
    picture.width = picture.height = 1 << 20;
    EXPECT_FALSE(drawNativeText(*face, "text", {}, picture));
}

TEST(win_font, another_face_takes_effect_and_none_is_the_systems_own)
{
    WinFont font("");
    const std::string own = font.getFaceName();
    EXPECT_NE(own, "");
    font.setFont("DejaVu Sans Mono");
    EXPECT_EQ(font.getFaceName(), "DejaVu Sans Mono");
    EXPECT_EQ(font.getTextWidth("iiii", 14), font.getTextWidth("WWWW", 14));
    font.setFont("");
    EXPECT_EQ(font.getFaceName(), own);
    EXPECT_LT(font.getTextWidth("iiii", 14), font.getTextWidth("WWWW", 14));
    EXPECT_LT(font.indexAtPoint({.text = "text", .width = 100, .height = 20}, {1, 1}), 0);
    EXPECT_THROW(static_cast<void>(font.indexAtX("text", 14, 1)), std::logic_error);
}

TEST(ftgl_font, a_text_without_blanks_keeps_all_its_lines)
{
    FtglFont font(test::latinFontFile());
    const float lineHeight = font.getLineHeight(14, 1);
    const auto height = [&](const char* text) {
        return font.measureText({.text = text, .size = 14, .width = 40, .maxLines = 1}).height;
    };
    EXPECT_GT(height("WWWWWWWWWWWWWWWW"), 2 * lineHeight);
    EXPECT_EQ(height("WW WWWWWWWWWWWWW"), lineHeight);
    EXPECT_EQ(height("\nx"), 2 * lineHeight) << "the first character always stays";
}

TEST(ftgl_font, a_file_that_is_no_font_is_a_font_without_glyphs)
{
    for (const std::string& path :
         {std::string(), std::string("no such file.ttf"), test::latinFontFile() + "?1",
          test::latinFontFile().substr(0, 3)}) {
        FtglFont font(path);
        EXPECT_EQ(font.measureText({.text = "text", .width = 100}).width, 0) << path;
        EXPECT_EQ(font.getLineHeight(14, 1), 0);
        EXPECT_EQ(font.getTextWidth("text", 14), 0);
        EXPECT_EQ(font.indexAtX("text", 14, 5), 0);
        EXPECT_LT(font.indexAtPoint({.text = "text", .width = 100, .height = 20}, {1, 1}), 0);
        font.setFont(test::latinFontFile());
        EXPECT_TRUE(font.measureText({.text = "text", .width = 100}).isValid());
        EXPECT_EQ(font.fontPath, test::latinFontFile());
    }
}

TEST(ftgl_font, other_files_stand_in_for_what_its_own_lacks)
{
    const std::string korean = "\uD55C\uAD6D\uC5B4";
    FtglFont latin(test::latinFontFile());
    FtglFont own(test::koreanFontFile());
    const float replaced = latin.getTextWidth(korean, 20);
    const float latinWidth = latin.getTextWidth("Latin", 20);
    latin.setStandIns({"no such file", test::koreanFontFile()});
    EXPECT_NE(latin.getTextWidth(korean, 20), replaced);
    EXPECT_EQ(latin.getTextWidth(korean, 20), own.getTextWidth(korean, 20));
    EXPECT_EQ(latin.getTextWidth("Latin", 20), latinWidth);
    latin.setStandIns({});
    EXPECT_EQ(latin.getTextWidth(korean, 20), replaced);
}

TEST(ftgl_font, a_box_that_is_narrower_than_its_characters_still_has_a_nearest_one)
{
    FtglFont font(test::latinFontFile());
    const std::string text = "\u03C9 narrow \n WWW";
    for (const std::int32_t maxLines : {0, 1, 2}) {
        const TextLayout layout{
            .text = text, .size = 14, .width = 2, .height = 50, .maxLines = maxLines};
        // A limit may end at a line that nothing stands in: then there is no layout.
        const std::int32_t least = font.measureText(layout).isValid() ? 0 : -1;
        EXPECT_EQ(least, maxLines == 2 ? -1 : 0);
        for (float y = -20; y < 400; y += 7)
            EXPECT_GE(font.indexAtPoint(layout, {1, y}), least) << maxLines << " " << y;
    }
}

TEST(ftgl_font, it_is_wider_than_its_text_by_a_fifth_of_its_size)
{
    FtglFont font(test::latinFontFile());
    EXPECT_EQ(font.getTextWidth("", 15), 3);
    EXPECT_EQ(font.getTextWidth("Width", 15),
              font.measureText({.text = "Width", .size = 15, .width = Wide}).width);
}

TEST(ftgl_font, a_place_on_a_line_belongs_to_the_nearest_character)
{
    FtglFont font(test::latinFontFile());
    const std::string text = "Wi\xC3\xBC WW";
    EXPECT_EQ(font.indexAtX(text, 20, -10), 0);
    EXPECT_EQ(font.indexAtX(text, 20, 0), 0);
    EXPECT_EQ(font.indexAtX(text, 20, 10000), 6);
    EXPECT_EQ(font.indexAtX("", 20, 5), 0);
    std::int32_t last = 0;
    for (float x = 0; x < font.getTextWidth(text, 20); ++x) {
        const std::int32_t index = font.indexAtX(text, 20, x);
        EXPECT_GE(index, last);
        EXPECT_LE(index, last + 1) << "at " << x;
        last = index;
    }
    EXPECT_EQ(last, 6);
}

TEST(ftgl_font, the_caret_stands_where_its_character_is_found)
{
    FtglFont font(test::latinFontFile());
    const std::string text = "W\xC3\xBC\ni  ";
    EXPECT_EQ(font.xAtIndex(text, 20, 0), 0);
    for (std::int32_t index = 0; index <= 6; ++index)
        EXPECT_EQ(font.indexAtX(text, 20, font.xAtIndex(text, 20, index)), index);
    EXPECT_EQ(font.xAtIndex(text, 20, 7), font.xAtIndex(text, 20, 6));
    EXPECT_EQ(font.xAtIndex("", 20, 1), 0);
}

} // namespace

} // namespace nui
