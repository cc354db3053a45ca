#include "nui/widgets/text_field.h"

#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/menus/popup_menu.h"
#include "nui/menus/text_menu.h"
#include "nui/widgets/list_box.h"
#include "nui/widgets/popup_list.h"
#include "support/nui/layout_folder.h"
#include "support/nui/text_field_test.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

using nui::test::Control;
using nui::test::Shift;

/// What goes to the clipboard and comes from it, also by the menu.
class text_field_clipboard_test : public nui::test::TextFieldTest {
protected:
    void loadMenu(const std::string& items)
    {
        folder.write("menu.json", "{'menus': [{'id': 'text_menu', 'children': [" + items + "]}]}");
        nui::engine().textMenu = nui::loadTextMenu(folder.path() + "menu.json");
    }

    const nui::test::LayoutFolder folder;
};

TEST_F(text_field_clipboard_test, the_clipboard_gives_and_takes_text)
{
    openFocused(", 'text': 'abcd'");
    after({SDLK_RIGHT, {SDLK_RIGHT, Shift}, {SDLK_RIGHT, Shift}, {SDLK_c, Control}});
    EXPECT_EQ(after({SDLK_END, {SDLK_v, Control}}), "abcdbc|");
    EXPECT_EQ(heard("WEXT screen 2"), 1);
    EXPECT_EQ(after({{SDLK_a, Control}, {SDLK_x, Control}}), "|");
    EXPECT_EQ(after({{SDLK_v, Control}, {SDLK_v, Control}}), "abcdbcabcdbc|");
    // With nothing selected there is nothing to copy.
    EXPECT_EQ(after({{SDLK_x, Control}, SDLK_HOME, {SDLK_v, Control}}), "abcdbc|abcdbcabcdbc");
    SDL_SetClipboardText("one\r\ntwo\rthree");
    EXPECT_EQ(after({{SDLK_a, Control}, {SDLK_v, Control}}), "one|");
}

TEST_F(text_field_clipboard_test, nothing_is_lost_that_the_clipboard_cannot_hold)
{
    openFocused("");
    field->setText(std::string("a\0b", 3));
    after({{SDLK_a, Control}, {SDLK_x, Control}});
    EXPECT_EQ(shown(), "|");
    EXPECT_EQ(after({{SDLK_v, Control}}), "a b|");
}

TEST_F(text_field_clipboard_test, a_field_may_go_when_it_tells_of_a_paste)
{
    open("");
    SDL_SetClipboardText("new");
    const auto remove = [](nui::WidgetEvent& event) {
        dynamic_cast<nui::Container&>(*event.target->parent).remove(event.target);
    };
    nui::subscribe(*field, nui::text::Pasting, remove, nullptr);
    const std::weak_ptr<nui::Widget> watched = field->weak_from_this();
    field->paste();
    EXPECT_TRUE(watched.expired());
}

TEST_F(text_field_clipboard_test, a_field_of_many_lines_takes_them_all)
{
    openFocused(", 'multiline': true");
    SDL_SetClipboardText("one\r\ntwo\rthree\n");
    EXPECT_EQ(after({{SDLK_v, Control}}), "one\ntwo\nthree\n|");
    EXPECT_EQ(after({SDLK_RETURN, {SDLK_KP_ENTER, Shift}}), "one\ntwo\nthree\n\n\n|");
    EXPECT_EQ(heard("0 screen"), 0); // the default button is not asked
}

TEST_F(text_field_clipboard_test, where_only_reading_is_allowed_selecting_and_copying_work)
{
    openFocused(", 'text': 'abc', 'readOnly': true, 'multiline': true");
    SDL_SetClipboardText("new");
    EXPECT_EQ(afterTyping("x"), "|abc");
    EXPECT_EQ(after({SDLK_RIGHT, {SDLK_v, Control}, SDLK_RETURN, SDLK_DELETE}), "a|bc");
    EXPECT_EQ(after({{SDLK_END, Shift}, {SDLK_x, Control}, SDLK_BACKSPACE}), "a[bc|]");
    char* text = SDL_GetClipboardText();
    EXPECT_STREQ(text, "new");
    SDL_free(text);
    after({{SDLK_c, Control}});
    text = SDL_GetClipboardText();
    EXPECT_STREQ(text, "bc");
    SDL_free(text);
}

TEST_F(text_field_clipboard_test, the_right_button_opens_the_menu_of_what_can_be_done)
{
    loadMenu("{'name': 'Cut', 'text': 'Cut'}, {'name': 'Copy', 'text': 'Copy'},"
             "{'name': 'Paste', 'text': 'Paste'}, {'name': 'Delete', 'text': 'Delete'}, {},"
             "{'name': 'SelectAll', 'text': 'Select all'}, {'name': 'x', 'text': 'Other'}");
    EXPECT_EQ(nui::loadTextMenu(folder.path() + "none.json"), nullptr);
    openFocused(", 'text': 'abc'");
    SDL_SetClipboardText("new");
    const auto greyed = [this] {
        std::string names;
        toolkit.press(SDL_BUTTON_RIGHT);
        toolkit.release(SDL_BUTTON_RIGHT);
        EXPECT_TRUE(field->isMenuOpen());
        for (const auto& item : nui::engine().textMenu->children())
            names += item->enabled ? "" : item->name + " ";
        return names;
    };
    toolkit.move(12, 10);
    EXPECT_EQ(greyed(), "Cut Copy Delete ");
    toolkit.frame();
    // By key: past what is greyed. The field keeps the keyboard.
    EXPECT_EQ(after({SDLK_DOWN, SDLK_RETURN}), "new|abc");
    EXPECT_FALSE(field->isMenuOpen());
    EXPECT_EQ(greyed(), "Cut Copy Delete ");
    EXPECT_EQ(after({SDLK_ESCAPE}), "new|abc");
    EXPECT_FALSE(field->isMenuOpen());
    field->selectAll();
    EXPECT_EQ(greyed(), "SelectAll ");
    EXPECT_EQ(afterTyping("x"), "x|");
    EXPECT_FALSE(field->isMenuOpen());
    field->runMenuCommand("SelectAll");
    EXPECT_EQ(shown(), "[x|]");
    field->runMenuCommand("Cut");
    EXPECT_EQ(shown(), "|");
    field->runMenuCommand("Paste");
    field->runMenuCommand("something else");
    EXPECT_EQ(shown(), "x|");
    field->runMenuCommand("SelectAll");
    field->runMenuCommand("Delete");
    EXPECT_EQ(shown(), "|");
    SDL_SetClipboardText("");
    EXPECT_EQ(greyed(), "Cut Copy Paste Delete SelectAll ");
}

TEST_F(text_field_clipboard_test, the_menu_of_a_field_in_a_popup_opens_and_closes_over_it)
{
    loadMenu("{'name': 'SelectAll', 'text': 'Select all'}");
    open("");
    nui::Popups& popups = nui::engine().popups;
    const auto popup = std::make_shared<nui::Container>();
    popup->visibility = nui::visibility::Overlapping;
    popup->widthMode = popup->heightMode = nui::Px;
    popup->widthValue = popup->heightValue = 100;
    const auto inside = std::make_shared<nui::TextField>();
    inside->heightMode = nui::Px;
    inside->heightValue = 20;
    popup->add(inside);
    popup->add(std::make_shared<nui::Widget>());
    nui::engine().showPopup(popup);
    toolkit.frame();
    const auto openMenu = [&] {
        toolkit.click(50, 10, SDL_BUTTON_RIGHT);
        toolkit.frame();
        return inside->isMenuOpen() && popups.isOpen(*popup) && popups.open() != popup;
    };
    EXPECT_TRUE(openMenu());
    toolkit.key(SDLK_ESCAPE);
    EXPECT_EQ(popups.open(), popup);
    EXPECT_TRUE(openMenu());
    EXPECT_TRUE(openMenu()) << "in place of the first";
    toolkit.click(10, 90);
    EXPECT_EQ(popups.open(), popup) << "a press on the popup";
    EXPECT_TRUE(openMenu());
    toolkit.press(290, 110);
    EXPECT_EQ(popups.open(), nullptr) << "a press beside both";
    EXPECT_FALSE(inside->isMenuOpen());
}

TEST_F(text_field_clipboard_test, the_menu_is_in_the_language_of_the_user)
{
    loadMenu("{'name': 'Cut', 'text': 'cut'}");
    folder.write("langfile.txt", "key\ten\ncut\tCut\nCut\tanother\n");
    nui::engine().lang = std::make_unique<nui::Lang>(folder.path() + "langfile.txt");
    nui::engine().lang->setLanguage("en");
    openFocused("");
    toolkit.press(12, 10, SDL_BUTTON_RIGHT);
    const auto menu = std::dynamic_pointer_cast<nui::PopupList>(nui::engine().popups.open());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->list().itemText(0), "Cut");
}

} // namespace
