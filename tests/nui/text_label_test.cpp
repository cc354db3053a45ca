#include "nui/widgets/text_label.h"

#include "support/nui/drawn_widget.h"
#include "support/nui/pixel_at.h"

#include <gtest/gtest.h>

#include <string>

namespace {

class text_label_test : public nui::test::DrawnWidgetTest<nui::TextLabel> {
protected:
    text_label_test() : DrawnWidgetTest(80, 60) { font().makesPictures = true; }

    void build(const std::string& keys) { DrawnWidgetTest::build("'class': 'TextLabel', " + keys); }

    std::string sizeOf(const std::string& keys)
    {
        build(keys);
        return size();
    }
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
    widget->setText("three");
    EXPECT_EQ(widget->width, 50);
    box->reloadText();
    EXPECT_EQ(widget->width, 30) << "that of its key again";
    widget->maxWidth = 60;
    widget->setText("the third");
    EXPECT_EQ(widget->width, 60);
    nui::engine().fonts.defaultFont.reset();
    widget->setText("none");
    EXPECT_EQ(widget->width, 0);
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
        EXPECT_EQ(widget->fontSize, wanted.size) << wanted.written;
    }
    nui::engine().metrics.scale = 2;
    build("'text': 'a', 'fontSize': 17");
    EXPECT_EQ(widget->fontSize, 8);
}

TEST_F(text_label_test, a_picture_lasts_until_something_that_it_shows_changes)
{
    build("'text': 'ab', 'width': 40, 'height': 20");
    const auto picturesAfter = [this] {
        draw();
        draw();
        return font().picturesMade;
    };
    EXPECT_EQ(picturesAfter(), 1);
    widget->color = 0xFF0000FF;
    box->alpha = 0.5F;
    widget->setText("ab");
    EXPECT_EQ(picturesAfter(), 1);
    widget->setText("cd");
    EXPECT_EQ(picturesAfter(), 2);
    widget->width = 41;
    EXPECT_EQ(picturesAfter(), 3);
    widget->fontSize = 13;
    EXPECT_EQ(picturesAfter(), 4);
    widget->textAlignment = nui::TextAlignment::Center;
    EXPECT_EQ(picturesAfter(), 5);
    widget->verticalTextAlignment = nui::VerticalTextAlignment::Top;
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
    box->alpha = 0.5F;
    (void)font().takeDrawn();
    draw();
    EXPECT_EQ(font().takeDrawn(), "'a' at 0,20 in 40x20 7f0000ff\n");
    box->alpha = 0;
    draw();
    EXPECT_EQ(font().takeDrawn(), "");
}

TEST_F(text_label_test, bytes_that_are_no_text_are_kept_and_take_a_character_each)
{
    build("'text': 'a', 'width': 'content', 'height': 'content'");
    widget->setText("x\xFF\xFEy");
    EXPECT_EQ(widget->width, 40);
    draw();
    EXPECT_EQ(widget->getText(), "x\xFF\xFEy");
}

} // namespace
