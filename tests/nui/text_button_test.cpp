#include "nui/widgets/text_button.h"

#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/widgets/link_text_button.h"
#include "support/nui/control_test.h"
#include "support/nui/drawn_widget.h"
#include "support/nui/pixel_at.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

using nui::test::FixedFont;

/// A button in a box of 200 by 100 on a display that is 2000 wide.
class text_button_layout_test : public nui::test::DrawnWidgetTest<nui::TextButton> {
protected:
    text_button_layout_test() : DrawnWidgetTest(200, 100) {}

    void build(const std::string& keys)
    {
        DrawnWidgetTest::build("'class': 'TextButton', " + keys);
    }

    /// Its size, and what it draws.
    std::string laidOut(const std::string& keys)
    {
        build(keys);
        (void)font().takeDrawn();
        draw();
        return size() + ": " + font().takeDrawn();
    }
};

TEST_F(text_button_layout_test, content_is_the_text_and_its_padding_but_no_less_than_the_least)
{
    const std::string padding =
        ", 'padding': {'left': 4, 'right': 6, 'top': 1, 'bottom': 3}, 'color': '#000000'";
    const std::string content = "'text': 'Save it', 'width': 'content', 'height': 'content'";
    EXPECT_EQ(laidOut(content + padding), "80x24: 'Save it' at 4,1 in 70x20 ff000000\n");
    EXPECT_EQ(laidOut(content + padding + ", 'minWidth': 100, 'minHeight': '20px'"),
              "100x24: 'Save it' at 4,1 in 90x20 ff000000\n");
    EXPECT_EQ(laidOut("'text': 'Save it', 'width': 50, 'height': 'content'" + padding),
              "50x44: 'Save it' at 4,1 in 40x40 ff000000\n");
    // The least is of measured sides only.
    EXPECT_EQ(laidOut("'text': 'a', 'width': 50, 'height': 30, 'minWidth': 90" + padding),
              "50x30: 'a' at 4,1 in 40x26 ff000000\n");
}

TEST_F(text_button_layout_test, a_limit_of_lines_holds_where_no_side_is_sized_by_the_text)
{
    EXPECT_EQ(laidOut("'text': 'a b', 'width': 10, 'height': 40, 'maxLines': 1"),
              "10x40: 'a b' at 0,0 in 10x40 ffffffff lines 1\n");
    EXPECT_EQ(laidOut("'text': 'a b', 'width': 10, 'height': 'content', 'maxLines': 1"),
              "10x40: 'a b' at 0,0 in 10x40 ffffffff\n");
}

TEST_F(text_button_layout_test, one_line_that_does_not_wrap_has_the_display_s_width)
{
    const std::string keys = "'text': 'a b', 'width': 100, 'height': 20, 'maxLines': 1,"
                             " 'wordWrap': false, 'padding': {'left': 10}";
    EXPECT_EQ(laidOut(keys), "100x20: 'a b' at 10,0 in 2000x20 ffffffff lines 1\n");
    // Its middle and its end stay where they would be without.
    EXPECT_EQ(laidOut(keys + ", 'textAlignment': 'Center'"),
              "100x20: 'a b' at -945,0 in 2000x20 ffffffff lines 1\n");
    EXPECT_EQ(laidOut(keys + ", 'textAlignment': 'Right'"),
              "100x20: 'a b' at -1900,0 in 2000x20 ffffffff lines 1\n");
    build("'text': 'a b', 'width': 10, 'height': 'content', 'wordWrap': false");
    widget->layout(0);
    EXPECT_EQ(widget->height, 40) << "only a single line goes on whatever the width";
}

TEST_F(text_button_layout_test, quarter_turns_come_from_whole_right_angles)
{
    for (const auto& [degrees, turns] :
         {std::pair{0U, 0U}, {45, 0}, {90, 1}, {180, 2}, {270, 3}, {359, 3}, {360, 0}, {450, 0}}) {
        build("'text': 'a', 'rotation': " + std::to_string(degrees));
        EXPECT_EQ(widget->rotation, turns) << degrees;
    }
}

TEST_F(text_button_layout_test, a_turned_button_measures_its_sides_the_other_way)
{
    const std::string keys = "'text': 'abc', 'width': 'content', 'height': 'content',"
                             " 'padding': {'left': 2, 'top': 5}, 'rotation': ";
    build(keys + "90");
    EXPECT_EQ(widget->width, 22);
    EXPECT_EQ(widget->height, 35);
    build(keys + "180");
    EXPECT_EQ(widget->width, 32);
    EXPECT_EQ(widget->height, 25);
    build("'text': 'abc de', 'width': 'content', 'height': 30, 'rotation': 270");
    EXPECT_EQ(widget->width, 40);
}

TEST_F(text_button_layout_test, a_turned_text_is_drawn_from_its_picture)
{
    font().makesPictures = true;
    // One character, a block of 8 by 16 in a box of 20 along the text and 16 across.
    const auto rows = [this](const std::string& degrees) {
        build("'text': 'a', 'width': 16, 'height': 20, 'verticalTextAlignment': 'Top',"
              " 'rotation': " +
              degrees);
        draw();
        std::string corners;
        for (const auto& [x, y] : {std::pair{1, 1}, {14, 1}, {1, 18}, {14, 18}})
            corners += nui::test::pixelAt(x, y) == "ffffff" ? 'x' : '.';
        return corners;
    };
    EXPECT_EQ(rows("90"), "xx..");  // begins above and runs down
    EXPECT_EQ(rows("270"), "..xx"); // begins below and runs up
    EXPECT_EQ(rows("180"), "...x"); // begins at the right, upside down
    // The picture serves the frames after the first one.
    box->draw({0, 0}, 1);
    EXPECT_EQ(font().picturesMade, 3);
}

class text_button_test : public nui::test::ControlTest {
protected:
    text_button_test()
    {
        open(R"({'template': 'plain', 'name': 'a', 'text': 'a', 'height': 20,
                 'default': true, 'overTemplate': 'hot'},
                {'class': 'TextButton', 'name': 'b', 'text': 'b', 'height': 20,
                 'overTemplate': 'hot'},
                {'class': 'LinkTextButton', 'name': 'link', 'text': 'more', 'height': 20},
                {'class': 'Widget', 'name': 'rest'})",
             R"({'class': 'Widget', 'id': 'hot', 'backgroundColor': '#ff0000'},
                {'class': 'TextButton', 'id': 'plain', 'backgroundColor': '#0000ff'})");
        screen->name = "screen";
        for (const char* const name : {"a", "b", "screen"})
            noteActivations(name, [name] { return name; });
    }
};

TEST_F(text_button_test, a_click_needs_press_and_release_on_the_button_and_goes_on_to_the_ancestors)
{
    toolkit.press(50, 10);
    toolkit.move(50, 30);
    toolkit.release();
    EXPECT_EQ(taken(), "");
    toolkit.press(); // on b
    toolkit.move(50, 10);
    toolkit.move(50, 30);
    toolkit.release();
    EXPECT_EQ(taken(), "b screen ");
    toolkit.press(SDL_BUTTON_RIGHT);
    toolkit.release(SDL_BUTTON_RIGHT);
    EXPECT_EQ(taken(), "");
    find("b")->setEnabled(false);
    toolkit.click(50, 30);
    EXPECT_EQ(taken(), "");
}

TEST_F(text_button_test, who_stops_the_activation_stops_the_release)
{
    const auto stop = [](nui::WidgetEvent& event) { event.stop(nui::stop_level::EndsBubble); };
    subscribe(*find("b"), nui::plain_event::Activate, stop, nullptr);
    int releases = 0;
    subscribe(
        *screen, nui::touch::Release,
        [](nui::WidgetEvent& event) { ++*static_cast<int*>(event.user); }, &releases);
    click("b");
    EXPECT_EQ(releases, 0);
    click("a");
    EXPECT_EQ(releases, 1);
}

TEST_F(text_button_test, return_and_space_activate_what_has_the_keyboard_unless_it_is_disabled)
{
    focus("b");
    toolkit.keys({SDLK_RETURN, SDLK_KP_ENTER, SDLK_SPACE});
    EXPECT_EQ(taken(), "b screen b screen b screen ");
    toolkit.key(SDLK_x);
    find("b")->setEnabled(false);
    toolkit.key(SDLK_SPACE);
    EXPECT_EQ(taken(), "");
}

TEST_F(text_button_test, the_default_button_answers_for_the_form)
{
    EXPECT_EQ(screen->form->defaultItem(), find("a"));
    // The link of the form has no default of its own, and b keeps Return to itself.
    const auto copy = std::dynamic_pointer_cast<nui::Container>(screen->clone());
    EXPECT_EQ(copy->form->defaultItem()->name, "a");
    EXPECT_NE(copy->form->defaultItem(), find("a"));
}

TEST_F(text_button_test, the_keyboard_shows_on_a_button_of_a_form)
{
    constexpr nui::Color Hot = 0xFF0000FF;
    focus("a");
    EXPECT_EQ(find("a")->backgroundColor, Hot);
    toolkit.key(SDLK_TAB);
    EXPECT_NE(find("a")->backgroundColor, Hot);
    EXPECT_EQ(screen->focusedWidget, find("b"));
    EXPECT_EQ(find("b")->backgroundColor, Hot) << "though it has no other look to go back to";
    EXPECT_EQ(taken(), "");
}

TEST_F(text_button_test, a_clone_is_clicked_by_itself)
{
    const auto copy = find("b")->clone();
    copy->name = "copy";
    screen->replace(find("rest").get(), copy);
    layOutAnew();
    noteActivations("copy", [] { return "copy"; });
    click("copy");
    EXPECT_EQ(taken(), "b copy screen ") << "whoever heard of b hears of its clone";
}

TEST_F(text_button_test, a_link_is_underlined_and_shows_the_hand_while_the_pointer_is_over_it)
{
    auto& link = dynamic_cast<nui::LinkTextButton&>(*find("link"));
    SDL_Cursor* const before = SDL_GetCursor();
    const auto underline = [this] {
        toolkit.frame();
        return nui::test::pixelAt(20, 59) + " " + nui::test::pixelAt(42, 59);
    };
    toolkit.move(10, 10);
    EXPECT_EQ(underline(), "000000 000000");
    toolkit.move(10, 50);
    EXPECT_TRUE(link.isHovered());
    EXPECT_EQ(underline(), "ffffff 000000");
    EXPECT_EQ(SDL_GetCursor(), nui::engine().linkCursor.get());
    EXPECT_FALSE(dynamic_cast<nui::LinkTextButton&>(*link.clone()).isHovered());
    const auto& font = static_cast<FixedFont&>(*nui::engine().fonts.defaultFont);
    const int measured = font.measured;
    EXPECT_EQ(underline(), "ffffff 000000"); // still, and measured before
    EXPECT_EQ(font.measured, measured);
    link.setText("mores");
    EXPECT_EQ(underline(), "ffffff ffffff");
    toolkit.move(10, 10);
    EXPECT_FALSE(link.isHovered());
    EXPECT_EQ(SDL_GetCursor(), before);
}

} // namespace
