#include "nui/text/ftgl_font.h"
#include "nui/text/win_font.h"
#include "support/nui/font_files.h"
#include "support/nui/headless_screen.h"

#include <GL/glew.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace nui {

namespace {

constexpr int ScreenWidth = 240;
constexpr int ScreenHeight = 120;

/// What is on the screen: the black one that texts are drawn on here.
class Picture {
public:
    Picture() : pixels_(std::size_t{ScreenWidth} * ScreenHeight)
    {
        glReadPixels(0, 0, ScreenWidth, ScreenHeight, GL_RGBA, GL_UNSIGNED_BYTE, pixels_.data());
    }

    [[nodiscard]] std::array<GLubyte, 4> at(int x, int y) const
    {
        return pixels_[static_cast<std::size_t>(ScreenHeight - 1 - y) * ScreenWidth +
                       static_cast<std::size_t>(x)];
    }
    [[nodiscard]] bool isLit(int x, int y) const
    {
        constexpr int Visible = 48;
        const std::array<GLubyte, 4> color = at(x, y);
        return std::max({color[0], color[1], color[2]}) >= Visible;
    }
    /// Of a channel.
    [[nodiscard]] int brightest(std::size_t channel) const
    {
        int value = 0;
        for (const std::array<GLubyte, 4>& pixel : pixels_)
            value = std::max<int>(value, pixel[channel]);
        return value;
    }
    /// Around all that is lit in a part of the screen.
    [[nodiscard]] Rect lit(Rect part = {0, 0, ScreenWidth, ScreenHeight}) const
    {
        int left = ScreenWidth;
        int top = ScreenHeight;
        int right = -1;
        int bottom = -1;
        for (int y = part.y; y < part.y + part.height; ++y) {
            for (int x = part.x; x < part.x + part.width; ++x) {
                if (!isLit(x, y))
                    continue;
                left = std::min(left, x);
                top = std::min(top, y);
                right = std::max(right, x);
                bottom = std::max(bottom, y);
            }
        }
        return {left, top, right + 1 - left, bottom + 1 - top};
    }

    bool operator==(const Picture&) const = default;

private:
    std::vector<std::array<GLubyte, 4>> pixels_; ///< from the lowest row
};

struct FontKind {
    const char* name;
    std::function<std::unique_ptr<Font>()> make;
};

class any_drawn_font_test : public testing::TestWithParam<FontKind> {
protected:
    Picture drawn(const TextLayout& layout, Point position, Color color = OpaqueWhite)
    {
        screen.clear();
        font->draw(layout, position, color, nullptr, nullptr);
        return {};
    }

    test::HeadlessScreen screen{ScreenWidth, ScreenHeight};
    std::unique_ptr<Font> font = GetParam().make();
};

INSTANTIATE_TEST_SUITE_P(
    fonts, any_drawn_font_test,
    testing::Values(FontKind{"of_the_system", [] { return std::make_unique<WinFont>(""); }},
                    FontKind{"from_a_file",
                             [] { return std::make_unique<FtglFont>(test::latinFontFile()); }}),
    [](const auto& kind) { return kind.param.name; });

TEST_P(any_drawn_font_test, text_shows_in_its_box_in_its_colour)
{
    const TextLayout text{.text = "Hlj", .size = 20, .width = 100, .height = 40};
    const Picture red = drawn(text, {30, 20}, 0xFF0000FF);
    const Rect place = red.lit();
    EXPECT_GE(place.x, 30);
    EXPECT_LE(place.x, 34);
    EXPECT_GE(place.y, 20);
    EXPECT_GT(place.width, 15);
    EXPECT_GT(place.height, 15);
    EXPECT_LE(place.y + place.height, 60);
    EXPECT_GT(red.brightest(0), 230);
    EXPECT_LT(red.brightest(1), 20);
    EXPECT_LT(red.brightest(2), 20);

    const Picture faint = drawn(text, {30, 20}, 0x800000FF);
    EXPECT_NEAR(2 * faint.brightest(0), red.brightest(0), 20);
    EXPECT_EQ(drawn(text, {30, 20}, 0x000000FF).brightest(0), 0);
}

TEST_P(any_drawn_font_test, alignments_place_it_in_the_box)
{
    TextLayout text{.text = "Hm", .size = 16, .width = 120, .height = 80};
    std::vector<Rect> across;
    for (const TextAlignment each :
         {TextAlignment::Left, TextAlignment::Center, TextAlignment::Right}) {
        text.alignment = each;
        across.push_back(drawn(text, {20, 10}).lit());
    }
    EXPECT_NEAR(across[0].x, 20, 3);
    EXPECT_NEAR(2 * across[1].x + across[1].width, 2 * 80, 4);
    EXPECT_NEAR(across[2].x + across[2].width, 140, 3);

    std::vector<Rect> down;
    for (const VerticalTextAlignment each :
         {VerticalTextAlignment::Top, VerticalTextAlignment::Middle,
          VerticalTextAlignment::Bottom}) {
        text.verticalAlignment = each;
        down.push_back(drawn(text, {20, 10}).lit());
    }
    const float free = 80 - font->getLineHeight(16, 1);
    EXPECT_NEAR(static_cast<float>(down[1].y - down[0].y), free / 2, 1);
    EXPECT_NEAR(static_cast<float>(down[2].y - down[0].y), free, 1);
    EXPECT_EQ(down[0].height, down[2].height);
}

TEST_P(any_drawn_font_test, between_pixels_it_is_as_crisp_as_on_them)
{
    const TextLayout text{.text = "Crisp", .size = 14, .width = 100, .height = 30};
    EXPECT_EQ(drawn(text, {20, 10}), drawn(text, {20.3F, 9.7F}));
}

TEST_P(any_drawn_font_test, lines_follow_each_other_at_the_height_of_a_line)
{
    TextLayout text{.text = "HH", .size = 14, .width = 100, .height = 100};
    const Rect one = drawn(text, {0, 0}).lit();
    text.text = "HH\nHH\nHH";
    const Rect three = drawn(text, {0, 0}).lit();
    EXPECT_EQ(three.y, one.y);
    EXPECT_EQ(three.width, one.width);
    EXPECT_NEAR(static_cast<float>(three.height - one.height), font->getLineHeight(14, 2), 1);
}

TEST_P(any_drawn_font_test, cut_text_ends_in_dots_at_the_foot_of_its_last_line)
{
    const TextLayout text{.text = "HHH HHH HHH HHH HHH HHH HHH HHH",
                          .size = 16,
                          .width = 130,
                          .height = 80,
                          .maxLines = 2};
    const Picture picture = drawn(text, {0, 0});
    const Rect all = picture.lit();
    EXPECT_LE(all.x + all.width, 130);
    const auto lineHeight = static_cast<int>(font->getLineHeight(16, 1));
    EXPECT_LE(all.height, 2 * lineHeight);
    const Rect second = picture.lit({0, lineHeight, ScreenWidth, lineHeight});
    const int end = second.x + second.width;
    const Rect dots = picture.lit({end - 6, lineHeight, 6, lineHeight});
    EXPECT_LE(dots.height, 4);
    EXPECT_EQ(dots.y + dots.height, second.y + second.height);
}

TEST_P(any_drawn_font_test, nothing_shows_without_a_text_or_a_box)
{
    EXPECT_EQ(drawn({.text = "", .width = 100, .height = 30}, {0, 0}).brightest(0), 0);
    EXPECT_EQ(drawn({.text = "text", .width = 0, .height = 30}, {0, 0}).brightest(0), 0);
    EXPECT_EQ(drawn({.text = "text", .width = -3, .height = 30}, {0, 0}).brightest(0), 0);
}

TEST(drawn_win_font, a_long_text_looks_like_as_much_of_it_as_there_is_room_for)
{
    test::HeadlessScreen screen(ScreenWidth, ScreenHeight);
    WinFont font("");
    std::string words;
    while (words.size() < 60000)
        words += "some words of text ";
    const auto drawn = [&](std::string_view text) {
        screen.clear();
        const TextLayout layout{.text = text,
                                .size = 14,
                                .width = 150,
                                .height = 100,
                                .verticalAlignment = VerticalTextAlignment::Middle};
        font.draw(layout, {20, 10}, OpaqueWhite, nullptr, nullptr);
        return Picture();
    };
    const Picture some = drawn(std::string_view(words).substr(0, 3000));
    EXPECT_GT(some.lit().height, 80);
    EXPECT_EQ(drawn(words), some);
}

TEST(drawn_ftgl_font, what_has_no_picture_keeps_its_room_also_as_a_fonts_first_character)
{
    test::HeadlessScreen screen(ScreenWidth, ScreenHeight);
    const auto leftEdge = [&screen](const char* text) {
        screen.clear();
        FtglFont font(test::latinFontFile());
        font.draw({.text = text, .size = 20, .width = 200, .height = 40}, {0, 0}, OpaqueWhite,
                  nullptr, nullptr);
        return Picture().lit().x;
    };
    const int withBlank = leftEdge("   H");
    EXPECT_EQ(withBlank, leftEdge("\u00a0\u00a0\u00a0H"));
    EXPECT_GT(withBlank, leftEdge("H\u3000\u3000") + 5); // wide ones come from another file
}

TEST(drawn_ftgl_font, lines_and_characters_beside_the_window_leave_the_others_as_they_are)
{
    test::HeadlessScreen screen(ScreenWidth, ScreenHeight);
    FtglFont font(test::latinFontFile());
    const float lineHeight = font.getLineHeight(14, 1);
    std::string lines;
    for (int line = 0; line < 200; ++line)
        lines += "gyl" + std::to_string(line) + "\n";
    const TextLayout all{.text = lines, .size = 14, .width = 200, .height = 1};
    screen.clear();
    font.draw(all, {0, -100 * lineHeight}, OpaqueWhite, nullptr, nullptr);
    const Picture scrolled;
    const TextLayout part{.text = std::string_view(lines).substr(lines.find("gyl98")),
                          .size = 14,
                          .width = 200,
                          .height = 1};
    screen.clear();
    font.draw(part, {0, -2 * lineHeight}, OpaqueWhite, nullptr, nullptr);
    EXPECT_EQ(Picture(), scrolled);

    const std::string wide(2000, 'W');
    const TextLayout line{
        .text = wide, .size = 14, .width = 1e6F, .height = lineHeight, .wordWrap = false};
    screen.clear();
    font.draw(line, {-5000, 0}, OpaqueWhite, nullptr, nullptr);
    const Rect lit = Picture().lit();
    EXPECT_LE(lit.x, 2);
    EXPECT_GE(lit.x + lit.width, ScreenWidth - 2);
}

TEST(drawn_win_font, a_picture_that_is_there_is_shown_and_else_left_behind)
{
    const test::HeadlessScreen screen(ScreenWidth, ScreenHeight);
    WinFont font("");
    std::shared_ptr<RenderedText> picture;
    TextLayout text{.text = "first", .size = 16, .width = 100.4F, .height = 29.2F};
    font.draw(text, {0, 0}, OpaqueWhite, nullptr, &picture);
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->texture().width, 101);
    EXPECT_EQ(picture->texture().height, 30);
    const Picture first;
    EXPECT_GT(first.brightest(0), 200);

    const std::shared_ptr<RenderedText> kept = picture;
    test::HeadlessScreen(ScreenWidth, ScreenHeight).clear();
    text.text = "other";
    font.draw(text, {0, 0}, OpaqueWhite, nullptr, &picture);
    EXPECT_EQ(picture, kept);

    std::shared_ptr<RenderedText> none;
    text.height = 0;
    font.draw(text, {0, 0}, OpaqueWhite, nullptr, &none);
    EXPECT_EQ(none, nullptr);
}

/// Text from a file with a caret: three lines, the first of which wraps.
class marked_text_test : public testing::Test {
protected:
    marked_text_test()
    {
        layout.width = font.getTextWidth("Some words to", 16);
        lineHeight = font.getLineHeight(16, 1);
    }

    TextMarks drawnWith(std::int32_t caret, std::int32_t anchor)
    {
        TextMarks marks{.caret = caret,
                        .anchor = anchor,
                        .caretColor = 0xFF00FF00,
                        .selectionColor = 0xFFFF0000};
        screen.clear();
        font.draw(layout, {10, 10}, OpaqueWhite, &marks, nullptr);
        return marks;
    }

    test::HeadlessScreen screen{ScreenWidth, ScreenHeight};
    FtglFont font{test::latinFontFile()};
    TextLayout layout{.text = "Some words to wrap\nand on\xC3\xA9", .size = 16, .height = 100};
    float lineHeight = 0;
};

TEST_F(marked_text_test, a_point_at_the_caret_finds_its_character)
{
    for (std::int32_t index = 0; index <= 26; ++index) {
        const TextMarks marks = drawnWith(index, index);
        const Point inLine{marks.caretX, marks.caretY + lineHeight};
        EXPECT_EQ(font.indexAtPoint(layout, inLine), index) << marks.caretX << " " << marks.caretY;
    }
    EXPECT_EQ(font.indexAtPoint(layout, {-100, -100}), 0);
    EXPECT_EQ(font.indexAtPoint(layout, {1000, 1000}), 26);
}

TEST_F(marked_text_test, the_carets_upper_edge_leads_to_the_lines_above_and_below)
{
    const std::int32_t inSecondLine = 16;
    const TextMarks marks = drawnWith(inSecondLine, inSecondLine);
    EXPECT_LT(font.indexAtPoint(layout, {marks.caretX, marks.caretY}), 14);
    EXPECT_GE(font.indexAtPoint(layout, {marks.caretX, marks.caretY + 2 * lineHeight + 1}), 19);
    // Above the first line there is none, which the keys see by the sign.
    EXPECT_LT(drawnWith(2, 2).caretY, 0);
}

TEST_F(marked_text_test, the_caret_is_a_bar_as_high_as_its_line)
{
    const TextMarks marks = drawnWith(2, 2);
    const Picture picture;
    const int x = 10 + static_cast<int>(marks.caretX);
    const auto height = static_cast<int>(lineHeight);
    for (int y = 11; y < 10 + height - 1; ++y)
        EXPECT_EQ(picture.at(x, y)[1], 255) << y;
    EXPECT_FALSE(picture.isLit(x, 9));
    EXPECT_FALSE(picture.isLit(x, 10 + height));

    const TextMarks none = drawnWith(-1, -1);
    EXPECT_EQ(none.caretX, 0);
    EXPECT_NE(Picture(), picture);
}

TEST_F(marked_text_test, the_selection_is_filled_behind_the_text_on_each_of_its_lines)
{
    const TextMarks end = drawnWith(21, 5);
    const Picture picture;
    const auto row = [this](int line) {
        return 10 + static_cast<int>(lineHeight * (static_cast<float>(line) + 0.9F));
    };
    EXPECT_FALSE(picture.isLit(12, row(0)));
    EXPECT_EQ(picture.at(10 + static_cast<int>(layout.width) - 12, row(0))[2], 255);
    EXPECT_EQ(picture.at(12, row(1))[2], 255);
    EXPECT_EQ(picture.at(12, row(2))[2], 255);
    EXPECT_FALSE(picture.isLit(10 + static_cast<int>(end.caretX) + 8, row(2)));
}

TEST_F(marked_text_test, selected_text_can_be_read_on_any_selection)
{
    TextMarks marks{.caret = 26, .anchor = 0, .caretColor = 0, .selectionColor = OpaqueBlack};
    font.draw(layout, {10, 10}, OpaqueBlack, &marks, nullptr);
    EXPECT_GT(Picture().brightest(0), 200);
}

} // namespace

} // namespace nui
