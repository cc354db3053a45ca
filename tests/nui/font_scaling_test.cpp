#include "nui/engine/engine.h"
#include "nui/text/ftgl_font.h"
#include "nui/text/win_font.h"
#include "nui/widgets/text_field.h"
#include "support/nui/font_files.h"
#include "support/nui/headless_screen.h"
#include "support/nui/layout.h"

#include <GL/glew.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

// What the user's font size offset and the application's scale do to texts.

namespace {

constexpr int Side = 120;

class font_scaling_test : public testing::TestWithParam<const char*> {
protected:
    font_scaling_test()
    {
        nui::Fonts& fonts = nui::engine().fonts;
        fonts.defaultFont = std::make_unique<nui::WinFont>("");
        fonts.defaultEditFont = std::make_unique<nui::FtglFont>(nui::test::latinFontFile());
    }

    void build(const std::string& fontSize, const std::string& keys)
    {
        box = nui::test::containerOf(
            "{'class': 'Container', 'width': 120, 'height': 120, 'children': [{'class': '" +
            std::string(GetParam()) + "', 'name': 'text', 'text': 'Hlg', 'fontSize': " + fontSize +
            keys + "}]}");
    }

    nui::Widget& laidOut()
    {
        nui::test::layOut(*box);
        return *box->children().front();
    }

    std::string size(const std::string& fontSize)
    {
        build(fontSize, ", 'width': 'content', 'height': 'content'");
        const nui::Widget& text = laidOut();
        EXPECT_GT(text.width, 0);
        EXPECT_GT(text.height, 0);
        return std::to_string(text.width) + " x " + std::to_string(text.height);
    }

    /// Rows of pixels that the text shows in.
    int drawnRows()
    {
        window.clear();
        box->draw({0, 0}, 1);
        std::vector<GLubyte> pixels(std::size_t{Side} * Side * 4);
        glReadPixels(0, 0, Side, Side, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
        int rows = 0;
        for (std::size_t row = 0; row < Side; ++row) {
            bool isLit = false;
            for (std::size_t at = row * Side * 4; at < (row + 1) * Side * 4; at += 4)
                isLit = isLit || pixels[at] > 64;
            rows += isLit ? 1 : 0;
        }
        return rows;
    }

    nui::test::MeasuringEngine engine;
    nui::test::HeadlessScreen window{Side, Side};
    std::shared_ptr<nui::Container> box;
};

INSTANTIATE_TEST_SUITE_P(classes, font_scaling_test,
                         testing::Values("TextLabel", "TextButton", "TextField"),
                         [](const auto& kind) { return std::string(kind.param); });

TEST_P(font_scaling_test, the_offset_is_added_to_sizes_that_are_not_negative)
{
    const std::string small = size("14");
    const std::string large = size("20");
    EXPECT_NE(small, large);
    EXPECT_EQ(size("-14"), small);
    nui::engine().fonts.fontSizeOffset = 6;
    EXPECT_EQ(size("14"), large);
    EXPECT_EQ(size("-14"), small);
    nui::engine().fonts.fontSizeOffset = -6;
    EXPECT_EQ(size("20"), small);
}

TEST_P(font_scaling_test, what_is_drawn_follows_the_offset_from_the_next_frame_on)
{
    for (const char* const fontSize : {"14", "-14"}) {
        nui::engine().fonts.fontSizeOffset = 0;
        build(fontSize, "");
        laidOut();
        const int before = drawnRows();
        EXPECT_GT(before, 8);
        nui::engine().fonts.fontSizeOffset = 14;
        laidOut();
        if (*fontSize == '-')
            EXPECT_EQ(drawnRows(), before);
        else
            EXPECT_NEAR(drawnRows(), 2 * before, 3);
    }
}

// What is read from a font file grows with the scale, so that pixels stay pixels; what the system
// draws is as high as its size says.
TEST_P(font_scaling_test, the_scale_divides_sizes_in_pixels_and_enlarges_the_edit_font)
{
    const bool isField = GetParam() == std::string("TextField");
    const auto rows = [this](const char* fontSize) {
        build(fontSize, "");
        laidOut();
        return drawnRows();
    };
    const int of20 = rows("'20px'");
    const int of40 = rows("'40pt'");
    EXPECT_EQ(rows("'20pt'"), of20);
    nui::engine().setScale(2);
    EXPECT_NEAR(rows("'40px'"), isField ? of40 : of20, 1);
    EXPECT_NEAR(rows("'20pt'"), isField ? of40 : of20, 1);
}

TEST(font_scaling, a_character_is_found_where_it_stands_at_any_scale)
{
    const nui::test::MeasuringEngine engine;
    nui::FtglFont font(nui::test::latinFontFile());
    const std::string text = "Some text";
    for (const float scale : {0.5F, 1.0F, 1.5F, 3.0F}) {
        nui::engine().setScale(scale);
        nui::engine().fonts.fontSizeOffset = 3;
        for (std::int32_t index = 0; index <= 9; ++index) {
            const float x = font.xAtIndex(text, 14, index);
            EXPECT_EQ(font.indexAtX(text, 14, x), index);
            EXPECT_EQ(
                font.indexAtPoint({.text = text, .size = 14, .width = 2000, .height = 200}, {x, 5}),
                index);
        }
    }
}

} // namespace
