#include "nui/widgets/text_label.h"

#include "nui/engine/engine.h"
#include "support/nui/fixed_font.h"
#include "support/nui/headless_screen.h"
#include "support/nui/layout.h"
#include "support/nui/pixel_at.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

using nui::test::FixedFont;

class text_label_test : public testing::Test {
protected:
    text_label_test()
    {
        auto made = std::make_unique<FixedFont>();
        font = made.get();
        font->makesPictures = true;
        nui::engine().fonts.defaultFont = std::move(made);
    }

    ~text_label_test() override
    {
        row.reset();
        label.reset();
    }

    void build(const std::string& keys)
    {
        row =
            nui::test::containerOf("{'class': 'Container', 'width': 80, 'height': 60, 'children': ["
                                   "{'class': 'TextLabel', 'name': 'label', " +
                                   keys + "}]}");
        nui::test::layOut(*row);
        label = std::dynamic_pointer_cast<nui::TextLabel>(row->children()[0]);
    }

    void draw()
    {
        window.clear();
        row->draw({0, 0}, 1);
    }

    std::string sizeOf(const std::string& keys)
    {
        build(keys);
        return std::to_string(static_cast<int>(label->width)) + "x" +
               std::to_string(static_cast<int>(label->height));
    }

    nui::test::MeasuringEngine engine;
    nui::test::HeadlessScreen window{80, 60};
    FixedFont* font = nullptr;
    std::shared_ptr<nui::Container> row;
    std::shared_ptr<nui::TextLabel> label;
};

TEST_F(text_label_test, content_is_as_large_as_the_text_and_wraps_at_a_width_that_is_given)
{
    EXPECT_EQ(sizeOf("'text': 'one two', 'width': 'content', 'height': 'content'"), "70x20");
    EXPECT_EQ(sizeOf("'text': 'one two', 'width': 40, 'height': 'content'"), "40x40");
    EXPECT_EQ(sizeOf("'text': 'one two', 'width': 'content', 'height': 11"), "70x11");
    EXPECT_EQ(sizeOf("'text': '', 'width': 'content', 'height': 'content'"), "0x20");
    EXPECT_EQ(sizeOf("'text': 'one', 'height': 30"), "80x30");
}

TEST_F(text_label_test, a_new_text_is_measured_at_once)
{
    build("'text': 'one', 'width': 'content', 'height': 'content'");
    label->setText("three");
    EXPECT_EQ(label->width, 50);
    label->maxWidth = 60;
    label->setText("the third");
    EXPECT_EQ(label->width, 60);
    nui::engine().fonts.defaultFont.reset();
    label->setText("none");
    EXPECT_EQ(label->width, 0);
    draw();
}

TEST_F(text_label_test, font_sizes_have_units_of_their_own)
{
    struct {
        const char* written;
        int size;
    } const cases[] = {{"17", 17},      {"'17.9px'", 17},   {"-14", -14},        {"'11.5pt'", 11},
                       {"'small'", 12}, {"'medium'", 15},   {"'large'", 18},     {"'50%'", 12},
                       {"'3sp'", 12},   {"1000000", 32767}, {"'9 furlongs'", 12}};
    for (const auto& wanted : cases) {
        build("'text': 'a', 'fontSize': " + std::string(wanted.written));
        EXPECT_EQ(label->fontSize, wanted.size) << wanted.written;
    }
    nui::engine().metrics.scale = 2;
    build("'text': 'a', 'fontSize': 17");
    EXPECT_EQ(label->fontSize, 8);
}

TEST_F(text_label_test, a_picture_lasts_until_something_that_it_shows_changes)
{
    build("'text': 'ab', 'width': 40, 'height': 20");
    const auto picturesAfter = [this] {
        draw();
        draw();
        return font->picturesMade;
    };
    EXPECT_EQ(picturesAfter(), 1);
    label->color = 0xFF0000FF;
    row->alpha = 0.5F;
    label->setText("ab");
    EXPECT_EQ(picturesAfter(), 1);
    label->setText("cd");
    EXPECT_EQ(picturesAfter(), 2);
    label->width = 41;
    EXPECT_EQ(picturesAfter(), 3);
    label->fontSize = 13;
    EXPECT_EQ(picturesAfter(), 4);
    label->textAlignment = nui::TextAlignment::Center;
    EXPECT_EQ(picturesAfter(), 5);
    label->verticalTextAlignment = nui::VerticalTextAlignment::Top;
    EXPECT_EQ(picturesAfter(), 6);
}

TEST_F(text_label_test, the_text_stands_aligned_in_the_box_in_the_label_s_faded_colour)
{
    build("'text': 'a', 'width': 40, 'height': 20, 'color': '#ff0000', 'top': 20,"
          " 'textAlignment': 'Right'");
    draw();
    const std::string blank(40, '.');
    EXPECT_EQ(nui::test::pixelRows(0, 19, 40, 2, "ff0000=r 000000=."),
              blank + "\n" + std::string(30, '.') + "rrrrrrrr..\n");
    row->alpha = 0.5F;
    (void)font->takeDrawn();
    draw();
    EXPECT_EQ(font->takeDrawn(), "'a' at 0,20 in 40x20 7f0000ff\n");
    row->alpha = 0;
    draw();
    EXPECT_EQ(font->takeDrawn(), "");
}

TEST_F(text_label_test, a_language_brings_the_text_of_the_key_back)
{
    build("'text': 'hello', 'width': 'content', 'height': 'content'");
    label->setText("good day");
    EXPECT_EQ(label->getText(), "good day");
    row->reloadText();
    EXPECT_EQ(label->getText(), "hello");
    EXPECT_EQ(label->width, 50);
}

TEST_F(text_label_test, bytes_that_are_no_text_are_kept_and_take_a_character_each)
{
    build("'text': 'a', 'width': 'content', 'height': 'content'");
    label->setText("x\xFF\xFEy");
    EXPECT_EQ(label->width, 40);
    draw();
    EXPECT_EQ(label->getText(), "x\xFF\xFEy");
}

} // namespace
