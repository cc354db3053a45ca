#include "nui/widgets/text_field.h"

#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/widgets/number_text_field.h"
#include "support/nui/text_field_test.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

using nui::test::Control;
using nui::test::Key;
using nui::test::Shift;

class text_field_test : public nui::test::TextFieldTest {};

TEST_F(text_field_test, what_is_typed_comes_in_at_the_caret_and_everybody_hears_of_it)
{
    openFocused(", 'maxLength': 5");
    EXPECT_EQ(afterTyping("h\xC3\xA9"), "h\xC3\xA9|");
    EXPECT_EQ(afterTyping("llo!"), "h\xC3\xA9llo|");
    EXPECT_EQ(heard("TEXT screen 2"), 2);
    // Refused, and told all the same.
    EXPECT_EQ(afterTyping("x"), "h\xC3\xA9llo|");
    EXPECT_EQ(heard("TEXT screen 2"), 1);
    EXPECT_EQ(field->insertText(""), 0);
    EXPECT_EQ(heard("TEXT screen 2"), 1);
    field->selectAll();
    EXPECT_EQ(field->insertText("\xEF\xBC\x91 2 3 4"), 5);
    EXPECT_EQ(shown(), "1 2 3|");
    (void)heard("TEXT");
    field->setText("x");
    EXPECT_EQ(heard("TEXT"), 0) << "from the program";
}

TEST_F(text_field_test, keys_move_select_and_remove)
{
    openFocused(", 'text': 'abcd'");
    EXPECT_EQ(shown(), "|abcd");
    EXPECT_EQ(after({SDLK_LEFT}), "|abcd");
    EXPECT_EQ(after({SDLK_RIGHT, {SDLK_RIGHT, Shift}}), "a[b|]cd");
    EXPECT_EQ(after({{SDLK_RIGHT, KMOD_LSHIFT | KMOD_RSHIFT | KMOD_NUM}}), "a[bc|]d");
    EXPECT_EQ(after({SDLK_LEFT}), "ab|cd");
    EXPECT_EQ(after({{SDLK_HOME, Shift}}), "[|ab]cd");
    EXPECT_EQ(after({SDLK_DELETE}), "|cd");
    EXPECT_EQ(after({SDLK_END, SDLK_BACKSPACE}), "c|");
    EXPECT_EQ(after({SDLK_HOME, {SDLK_END, Shift}}), "[c|]");
    EXPECT_EQ(after({{SDLK_BACKSPACE, Shift}}), "|");
    EXPECT_EQ(heard("TEXT"), 3);
    EXPECT_EQ(after({SDLK_BACKSPACE, SDLK_DELETE, SDLK_RIGHT}), "|");
    EXPECT_EQ(heard("TEXT"), 0);
    EXPECT_EQ(after({{SDLK_a, Control | KMOD_LALT}, {SDLK_LEFT, KMOD_LGUI}}), "|");
}

TEST_F(text_field_test, only_keys_that_do_something_are_used_up)
{
    openFocused(", 'text': 'abc'");
    // Stands behind the field's own listener.
    nui::subscribe(
        *field, nui::keyboard::Down,
        [](nui::WidgetEvent& event) { *static_cast<bool*>(event.user) = true; }, &unused);
    const auto isUsedUp = [this](Key key) {
        unused = false;
        toolkit.key(key.code, key.modifiers);
        return !unused;
    };
    EXPECT_FALSE(isUsedUp({SDLK_BACKSPACE})); // at the beginning
    EXPECT_TRUE(isUsedUp({SDLK_RIGHT}));
    EXPECT_TRUE(isUsedUp({SDLK_LEFT, Shift}));
    EXPECT_TRUE(isUsedUp({SDLK_HOME}));
    EXPECT_TRUE(isUsedUp({SDLK_END}));
    // These two leave the key to others once they have selected.
    EXPECT_FALSE(isUsedUp({SDLK_HOME, Shift}));
    EXPECT_FALSE(isUsedUp({SDLK_END, Shift}));
    EXPECT_FALSE(isUsedUp({SDLK_DELETE})); // at the end
    EXPECT_TRUE(isUsedUp({SDLK_BACKSPACE}));
    EXPECT_FALSE(isUsedUp({SDLK_a, Control}));
    EXPECT_TRUE(isUsedUp({SDLK_c, Control}));
    EXPECT_TRUE(isUsedUp({SDLK_v, Control}));
    EXPECT_TRUE(isUsedUp({SDLK_x, Control}));
    EXPECT_FALSE(isUsedUp({SDLK_RETURN}));
    EXPECT_FALSE(isUsedUp({SDLK_F5}));
}

TEST_F(text_field_test, return_in_one_line_goes_to_the_form)
{
    openFocused(", 'text': 'a'");
    after({SDLK_RETURN});
    EXPECT_EQ(shown(), "|a");
    after({SDLK_TAB});
    field = dynamic_cast<nui::TextField*>(screen->findByName("other"));
    EXPECT_EQ(shown(), "[else|]"); // what Tab moves to is selected whole
}

TEST_F(text_field_test, a_password_shows_a_star_a_byte_and_does_not_leave_the_field)
{
    SDL_Init(SDL_INIT_VIDEO);
    openFocused(", 'inputType': 'Password', 'maxLines': 1");
    toolkit.type("\xC3\xA4\xC3\xB6\xC3\xBC");
    EXPECT_EQ(drawn(), "'******' at 0,0 in 100x40 ff000000 caret 6 anchor 6 ff000000 ff000000");
    SDL_SetClipboardText("before");
    EXPECT_EQ(after({{SDLK_a, Control}, {SDLK_c, Control}, {SDLK_x, Control}}),
              "[\xC3\xA4\xC3\xB6\xC3\xBC|]");
    EXPECT_EQ(SDL_HasClipboardText(), SDL_TRUE);
    EXPECT_EQ(after({SDLK_DELETE}), "|");
    field->setText("x");
    nui::engine().setFocus(nullptr);
    EXPECT_EQ(drawn(), "'*' at 0,0 in 100x40 ff000000");
    toolkit.press(8, 10);
    EXPECT_EQ(shown(), "x|");
    field->setText("\xC3\xA4\xC3\xB6");
    toolkit.press();
    EXPECT_EQ(shown(), "\xC3\xA4|\xC3\xB6"); // the second star ends the first character
    toolkit.release();
    field->setText("\xFF\xC3\xA4\xC3"); // three characters
    field->setCaret(2);
    EXPECT_NE(drawn().find("'****' at 0,0 in 100x40 ff000000 caret 3 anchor 3"), std::string::npos);
    toolkit.press(90, 10);
    EXPECT_EQ(field->caret(), 3);
    toolkit.release();
}

TEST_F(text_field_test, a_disabled_field_hears_no_keys)
{
    openFocused(", 'text': 'abc'");
    field->setEnabled(false);
    EXPECT_EQ(after({SDLK_RIGHT, SDLK_DELETE}), "|abc");
    EXPECT_EQ(afterTyping("x"), "|abc");
    field->insertText("x"); // the program may
    EXPECT_EQ(shown(), "x|abc");
}

TEST_F(text_field_test, a_click_into_it_selects_all_and_the_next_one_places_the_caret)
{
    open(", 'text': 'abcdef'");
    toolkit.press(26, 10);
    EXPECT_TRUE(field->isFocused());
    EXPECT_EQ(shown(), "abc|def");
    toolkit.release();
    EXPECT_EQ(shown(), "[abcdef|]");
    toolkit.press();
    toolkit.release();
    EXPECT_EQ(shown(), "abc|def");
    // The right button leaves the caret where it is.
    toolkit.click(10, 10, SDL_BUTTON_RIGHT);
    EXPECT_EQ(shown(), "abc|def");
    nui::engine().setFocus(nullptr);
    toolkit.press(SDL_BUTTON_RIGHT);
    EXPECT_EQ(shown(), "[abcdef|]");
}

TEST_F(text_field_test, a_drag_selects_also_beyond_the_field)
{
    open(", 'text': 'abcdef'");
    toolkit.press(24, 10);
    toolkit.move(41, 10);
    EXPECT_EQ(shown(), "ab[cd|]ef");
    toolkit.move(-100, 300);
    EXPECT_EQ(shown(), "[|ab]cdef");
    toolkit.move(250, 10);
    EXPECT_EQ(shown(), "ab[cdef|]");
    toolkit.release();
    EXPECT_EQ(shown(), "ab[cdef|]");
    toolkit.move(10, 10); // no longer captured
    EXPECT_EQ(shown(), "ab[cdef|]");
}

TEST_F(text_field_test, up_and_down_go_to_the_nearest_character_of_the_next_line)
{
    // Wraps into "abcd efgh ", "ij", "klmnop".
    openFocused(", 'text': 'abcd efgh ij', 'height': 70");
    field->insertText("");
    field->setText("abcd efgh ij\nklmnop");
    field->setCaret(7);
    toolkit.frame();
    const auto afterKey = [this](Key key) {
        toolkit.key(key.code, key.modifiers);
        toolkit.frame();
        return field->caret();
    };
    EXPECT_EQ(afterKey({SDLK_DOWN}), 12); // the line is shorter
    EXPECT_EQ(afterKey({SDLK_DOWN}), 15);
    EXPECT_EQ(afterKey({SDLK_DOWN}), 15); // the box ends here
    EXPECT_EQ(afterKey({SDLK_UP, Shift}), 12);
    EXPECT_EQ(field->anchor(), 15);
    EXPECT_EQ(afterKey({SDLK_UP}), 2);
    EXPECT_EQ(afterKey({SDLK_UP}), 2);
    // Also twice within a frame.
    toolkit.keys({SDLK_DOWN, SDLK_DOWN});
    EXPECT_EQ(field->caret(), 15);
}

TEST_F(text_field_test, a_composition_stands_selected_until_it_is_accepted_or_given_up)
{
    openFocused(", 'text': 'ab'");
    field->setCaret(1);
    compose("x");
    compose("xyz");
    EXPECT_EQ(shown(), "a[|xyz]b");
    EXPECT_TRUE(field->isComposing());
    EXPECT_EQ(after({SDLK_RETURN, SDLK_LEFT}), "a[|xyz]b"); // the input method's keys
    EXPECT_EQ(afterTyping("\xE5\x88\x87"), "a\xE5\x88\x87|b");
    EXPECT_FALSE(field->isComposing());
    compose("q");
    after({SDLK_BACKSPACE});
    compose("");
    EXPECT_EQ(shown(), "a\xE5\x88\x87|b");
    // Without such a key the end is only told before the text comes.
    compose("q");
    after({SDLK_RIGHT});
    compose("");
    EXPECT_EQ(shown(), "a\xE5\x88\x87[|q]b");
    EXPECT_EQ(afterTyping("Q"), "a\xE5\x88\x87Q|b");
}

TEST_F(text_field_test, a_number_text_field_keeps_what_was_composed)
{
    openFocused("", "NumberTextField");
    compose("12");
    EXPECT_EQ(afterTyping("ignored"), "[|12]");
    EXPECT_EQ(afterTyping("3"), "3|");
}

TEST_F(text_field_test, it_draws_the_hint_the_marks_or_the_text_alone)
{
    open(", 'hint': 'Name', 'hintColor': '#808080', 'caretColor': '#ff0000',"
         " 'padding': {'left': 4, 'right': 6, 'top': 2}");
    EXPECT_EQ(drawn(), "'Name' at 4,2 in 90x38 ff808080");
    focus();
    EXPECT_EQ(drawn(), "'Name' at 4,2 in 90x38 ff808080 caret 0 anchor 0 ff0000ff ff000000");
    field->insertText("abc");
    EXPECT_EQ(drawn(), "'abc' at 4,2 in 90x38 ff000000 caret 3 anchor 3 ff0000ff ff000000");
    // The caret hides behind a selection, but not behind a composition.
    after({{SDLK_LEFT, Shift}});
    EXPECT_EQ(drawn(), "'abc' at 4,2 in 90x38 ff000000 caret 2 anchor 3 00000000 ff000000");
    compose("x");
    EXPECT_EQ(drawn(), "'abx' at 4,2 in 90x38 ff000000 caret 2 anchor 3 ff0000ff ff000000");
    nui::engine().setFocus(nullptr);
    EXPECT_EQ(drawn(), "'abx' at 4,2 in 90x38 ff000000");
}

TEST_F(text_field_test, the_caret_is_solid_while_typing_and_blinks_then)
{
    openFocused(", 'text': 'a', 'caretAlpha': 0.2");
    const auto alpha = [this] {
        const std::string line = drawn();
        return line.substr(line.size() - 17, 2);
    };
    EXPECT_EQ(alpha(), "ff");
    for (int frame = 0; frame < 6; ++frame)
        toolkit.frame();
    EXPECT_NE(alpha(), "ff");
    after({SDLK_RIGHT});
    EXPECT_EQ(alpha(), "ff");
    EXPECT_EQ(nui::engine().tweens.size(), 1U);
    nui::engine().setFocus(nullptr);
    EXPECT_EQ(nui::engine().tweens.size(), 0U);
    focus();
    screen->remove(field);
    EXPECT_EQ(nui::engine().tweens.size(), 1U); // the window holds it as what has the keyboard
    nui::engine().setFocus(nullptr);
    EXPECT_EQ(nui::engine().tweens.size(), 0U);
}

TEST_F(text_field_test, a_scrolling_field_keeps_its_caret_in_view)
{
    openFocused(", 'class_version': 2, 'padding': {'left': 5}, 'wordWrap': false, 'maxLines': 1");
    const auto scroll = [this] { return static_cast<int>(field->scrollX()); };
    field->insertText("12345678");
    EXPECT_EQ(scroll(), 0);
    field->insertText("9012");
    EXPECT_EQ(scroll(), -28); // 5 + 120 is 97
    const std::string display = std::to_string(nui::engine().metrics.width) + "x40 ff000000";
    EXPECT_EQ(drawn(),
              "'123456789012' at -23,0 in " + display + " caret 12 anchor 12 ff000000 ff000000");
    after({SDLK_LEFT});
    EXPECT_EQ(scroll(), -24); // 5 + 110 is 91
    after({SDLK_HOME});
    EXPECT_EQ(scroll(), -2);
    field->setCaret(999999);
    EXPECT_EQ(shown(), "123456789012|");
    EXPECT_EQ(scroll(), -28);
    toolkit.move(60, 10);
    for (int press = 0; press < 2; ++press) {
        toolkit.press();
        toolkit.release();
        EXPECT_EQ(field->caret(), 8); // (60 + 23) / 10
    }
    EXPECT_EQ(scroll(), -28) << "a press would move the text under the pointer";
    field->setText("short");
    EXPECT_EQ(scroll(), 0);
    nui::engine().setFocus(nullptr);
    EXPECT_EQ(drawn(), "'short' at 5,0 in " + display + " lines 1");
}

TEST_F(text_field_test, a_scrolling_field_follows_its_caret_and_not_what_fonts_add_to_a_width)
{
    openFocused(", 'class_version': 2, 'wordWrap': false, 'maxLines': 1");
    font->extraWidth = 4;
    field->insertText("1234567890");
    EXPECT_EQ(field->scrollX(), -3); // the caret at 100 goes to 97
}

TEST_F(text_field_test, a_scrolling_field_has_one_line_whatever_is_in_it)
{
    openFocused(", 'class_version': 2, 'text': 'a\\nb'");
    EXPECT_EQ(drawn(), "'a b' at 0,0 in 100x40 ff000000 caret 0 anchor 0 ff000000 ff000000");
    EXPECT_EQ(after({SDLK_END}), "a\nb|");
}

TEST_F(text_field_test, what_is_typed_does_not_outgrow_the_limits)
{
    openFocused(", 'width': 'content', 'height': 'content', 'maxWidth': 50, 'maxHeight': 15,"
                " 'text': 'a'");
    EXPECT_EQ(afterTyping("bcdefg"), "bcdefg|a");
    EXPECT_EQ(field->width, 50);
    EXPECT_EQ(field->height, 15);
    field->setText("abcdefghi");
    EXPECT_EQ(field->width, 50);
    field->setText("abc");
    EXPECT_EQ(field->width, 30);
    EXPECT_EQ(drawn(), "'abc' at 0,0 in 30x15 ff000000 caret 3 anchor 3 ff000000 ff000000");
}

TEST_F(text_field_test, an_empty_key_takes_away_what_a_template_says)
{
    screen = toolkit.open(
        "{'templates': [{'class': 'TextField', 'id': 'full', 'text': 'abc', 'hint': 'Name'}],"
        " 'widgets': [{'class': 'Screen', 'id': 'screen', 'children': ["
        "{'template': 'full', 'name': 'f', 'text': '', 'hint': '', 'width': 'content'}]}]}");
    field = dynamic_cast<nui::TextField*>(screen->findByName("f"));
    EXPECT_EQ(field->getText(), "");
    EXPECT_EQ(field->width, 0);
}

TEST_F(text_field_test, an_empty_field_is_as_wide_as_its_hint)
{
    open(", 'hint': 'Your name', 'width': 'content'");
    EXPECT_EQ(field->width, 90);
    EXPECT_EQ(field->getText(), "");
    field->insertText("Jo");
    EXPECT_EQ(field->width, 20);
}

TEST_F(text_field_test, a_copy_has_neither_the_keyboard_nor_the_selection)
{
    openFocused(", 'text': 'abc', 'hint': 'h', 'maxLength': 3, 'minWidth': 500, 'rotation': 90");
    field->selectAll();
    EXPECT_EQ(field->rotation, 0U); // keys of buttons, which a field does not read
    const auto copy = std::dynamic_pointer_cast<nui::TextField>(field->clone());
    EXPECT_FALSE(copy->isFocused());
    EXPECT_EQ(copy->caret(), copy->anchor());
    screen->replace(screen->findByName("other"), copy);
    screen->markDirty();
    toolkit.frame();
    nui::engine().setFocus(copy);
    toolkit.type("x");
    EXPECT_EQ(copy->getText(), "abc"); // full
    EXPECT_EQ(field->getText(), "abc");
    toolkit.key(SDLK_DELETE);
    EXPECT_EQ(copy->getText(), "bc");
    EXPECT_EQ(field->getText(), "abc");
}

TEST_F(text_field_test, bytes_that_are_no_text_become_replacement_characters_with_the_first_edit)
{
    openFocused("");
    field->setText("a\xFF\xC3z");
    EXPECT_EQ(field->getText(), "a\xFF\xC3z");
    EXPECT_EQ(after({SDLK_END}), "a\xEF\xBF\xBD\xEF\xBF\xBDz|");
    EXPECT_EQ(field->getText(), "a\xFF\xC3z");
    EXPECT_EQ(afterTyping("!"), "a\xEF\xBF\xBD\xEF\xBF\xBDz!|");
    SDL_SetClipboardText("a\xFFz");
    EXPECT_EQ(after({{SDLK_a, Control}, {SDLK_v, Control}}), "a\xEF\xBF\xBDz|");
}

} // namespace
