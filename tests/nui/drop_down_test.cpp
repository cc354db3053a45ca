#include "nui/widgets/drop_down.h"

#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/menus/popup_menu.h"
#include "nui/menus/text_menu.h"
#include "nui/widgets/list_box.h"
#include "nui/widgets/text_label.h"
#include "support/nui/control_test.h"
#include "support/nui/layout_folder.h"

#include <SDL_keycode.h>
#include <SDL_mouse.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using nui::DropDown;
using nui::engine;
using nui::PopupList;

class drop_down_test : public nui::test::ControlTest {
protected:
    /// A drop-down `top` pixels below the window's upper edge, with rows of 20 pixels.
    void openDropDown(int top = 0, const std::string& keys = "")
    {
        open("{'class': 'DropDown', 'name': 'choice', 'top': " + std::to_string(top) +
                 ", 'width': 80, 'height': 20, 'popup': 'looks', 'items': ['one', 'two', 'three']" +
                 keys +
                 "}, {'class': 'TextButton', 'name': 'ok', 'default': true, 'width': 50, "
                 "'height': 20, 'left': 200}",
             "{'class': 'TextLabel', 'id': 'row', 'height': 20},"
             "{'class': 'ListBox', 'id': 'looks', 'itemTemplate': 'row'}");
        choice = &get<DropDown>("choice");
        noteActivations("choice", [this] { return choice->selectedText(); });
    }

    DropDown* choice = nullptr;
};

TEST_F(drop_down_test, a_click_opens_the_list_and_another_one_chooses)
{
    openDropDown();
    EXPECT_EQ(choice->selectedText(), "");
    click("choice");
    ASSERT_TRUE(choice->isListOpen());
    click(*popup()->list().children()[1]);
    EXPECT_FALSE(choice->isListOpen());
    EXPECT_EQ(taken(), "two ");
    EXPECT_EQ(choice->selectedIndex(), 1);
    EXPECT_EQ(get<nui::TextLabel>("text").getText(), "two");
    EXPECT_EQ(focused(), "choice");
    click("choice");
    click(*popup()->list().children()[1]);
    EXPECT_EQ(taken(), "") << "the same again";
}

// What keeps a model in step takes the text over with these events.
TEST_F(drop_down_test, a_choice_ends_in_a_release_or_key_that_finds_it_made)
{
    openDropDown();
    std::string heard;
    const auto listen = [](nui::WidgetEvent& event) {
        auto& target = dynamic_cast<DropDown&>(*event.target);
        *static_cast<std::string*>(event.user) += target.selectedText() + " ";
    };
    subscribe(*choice, nui::touch::Release, listen, &heard);
    subscribe(*choice, nui::keyboard::Down, listen, &heard);
    click("choice");
    click(*popup()->list().children()[2]);
    toolkit.keys({SDLK_UP, SDLK_HOME});
    EXPECT_EQ(heard, " three two one one ");
}

TEST_F(drop_down_test, keys_change_the_selection_without_the_list)
{
    openDropDown();
    focus("choice");
    toolkit.keys({SDLK_DOWN, SDLK_DOWN, SDLK_DOWN, SDLK_DOWN, SDLK_UP, SDLK_HOME, SDLK_END});
    EXPECT_EQ(taken(), "one two three two one three ");
    toolkit.type("t");
    EXPECT_EQ(taken(), "two ");
    toolkit.type("h");
    EXPECT_EQ(taken(), "three ");
    toolkit.key(SDLK_SPACE);
    EXPECT_FALSE(choice->isListOpen()) << "a blank among letters";
    toolkit.clock.advance(1000);
    toolkit.key(SDLK_SPACE);
    EXPECT_TRUE(choice->isListOpen());
}

TEST_F(drop_down_test, the_menu_of_a_field_in_the_list_leaves_the_list_open)
{
    const nui::test::LayoutFolder folder;
    folder.write("menu.json", "{'menus': [{'id': 'text_menu', 'children': [{'name': 'SelectAll', "
                              "'text': 'Select all'}]}]}");
    open("{'class': 'DropDown', 'name': 'choice', 'width': 80, 'height': 20, 'popup': 'looks', "
         "'items': ['one', 'two']}",
         "{'class': 'TextField', 'id': 'row', 'height': 20},"
         "{'class': 'ListBox', 'id': 'looks', 'itemTemplate': 'row'}");
    engine().textMenu = nui::loadTextMenu(folder.path() + "menu.json");
    click("choice");
    const nui::WidgetPtr list = engine().popups.open();
    ASSERT_NE(list, nullptr);
    moveTo(*dynamic_cast<PopupList&>(*list).list().children()[1]);
    toolkit.press(SDL_BUTTON_RIGHT);
    toolkit.release(SDL_BUTTON_RIGHT);
    EXPECT_TRUE(engine().popups.isOpen(*list));
    EXPECT_NE(engine().popups.open(), list);
    toolkit.key(SDLK_ESCAPE);
    EXPECT_EQ(engine().popups.open(), list);
    EXPECT_TRUE(get<DropDown>("choice").isListOpen());
}

TEST_F(drop_down_test, keys_work_the_open_list_and_keep_out_the_form)
{
    openDropDown(0, ", 'selected': 0");
    noteActivations("ok", [] { return "ok"; });
    focus("choice");
    toolkit.keys({SDLK_F4, SDLK_DOWN});
    EXPECT_EQ(choice->selectedIndex(), 0) << "not chosen yet";
    toolkit.key(SDLK_ESCAPE);
    EXPECT_FALSE(choice->isListOpen());
    EXPECT_EQ(choice->selectedIndex(), 0);
    toolkit.keys({{SDLK_DOWN, KMOD_LALT}, SDLK_END, SDLK_RETURN});
    EXPECT_EQ(taken(), "three ");
    toolkit.key(SDLK_RETURN);
    EXPECT_EQ(taken(), "ok ") << "the list has closed";
    toolkit.keys({SDLK_F4, SDLK_F4});
    EXPECT_FALSE(choice->isListOpen());
    toolkit.keys({{SDLK_DOWN, KMOD_LALT}, {SDLK_UP, KMOD_LALT}});
    EXPECT_FALSE(choice->isListOpen());
    toolkit.keys({SDLK_SPACE, SDLK_TAB});
    EXPECT_FALSE(choice->isListOpen());
    EXPECT_EQ(focused(), "ok");
}

TEST_F(drop_down_test, a_press_beside_the_list_or_on_the_drop_down_closes_it)
{
    openDropDown();
    click("choice");
    toolkit.press(280, 150);
    EXPECT_FALSE(choice->isListOpen());
    toolkit.release();
    click("choice");
    click("choice");
    EXPECT_FALSE(choice->isListOpen());
    click("choice");
    choice->setEnabled(false);
    EXPECT_FALSE(choice->isListOpen());
}

TEST_F(drop_down_test, press_and_release_over_an_item_are_one_gesture)
{
    openDropDown();
    press(*choice);
    toolkit.frame();
    moveTo(*popup()->list().children()[2]);
    toolkit.release();
    EXPECT_EQ(taken(), "three ");
}

TEST_F(drop_down_test, the_program_selects_by_text_in_a_list_that_was_never_opened)
{
    openDropDown(0, ", 'hint': 'choose', 'selected': 1");
    EXPECT_TRUE(choice->selectText("three"));
    EXPECT_FALSE(choice->selectText("four"));
    EXPECT_EQ(choice->selectedText(), "three");
    choice->select(7);
    EXPECT_EQ(choice->selectedText(), "three");
    choice->select(DropDown::None);
    EXPECT_EQ(get<nui::TextLabel>("text").getText(), "choose");
    EXPECT_EQ(taken(), "");
}

TEST_F(drop_down_test, the_list_stays_in_the_window_below_or_above)
{
    openDropDown(30);
    click("choice");
    EXPECT_EQ(popup()->localX, 0);
    EXPECT_EQ(popup()->localY, 50);
    EXPECT_EQ(popup()->height, 62);
    choice->closeList();
    choice->margin.top = 170;
    choice->margin.left = 280;
    layOutAnew();
    click("choice");
    EXPECT_EQ(popup()->localY, 108) << "above";
    EXPECT_EQ(popup()->localX + popup()->width, 300);
}

TEST_F(drop_down_test, many_items_scroll_and_the_selected_one_is_seen)
{
    openDropDown(0, ", 'maxRows': 4");
    choice->setItems(std::vector<std::string>(30, "item"));
    choice->select(20);
    click("choice");
    EXPECT_EQ(popup()->height, 82);
    const nui::Widget& shown = *popup()->list().children()[20];
    EXPECT_GE(shown.y, popup()->y);
    EXPECT_LE(shown.y + shown.height, popup()->y + popup()->height);
    const float scroll = popup()->list().scrollY;
    moveTo(popup()->list());
    toolkit.wheel(1);
    EXPECT_GT(popup()->list().scrollY, scroll);
    EXPECT_TRUE(choice->isListOpen());
}

TEST_F(drop_down_test, an_item_that_is_disabled_is_pale_and_cannot_be_chosen)
{
    openDropDown();
    std::int32_t chosen = -1;
    const auto list = std::make_shared<PopupList>();
    list->setItems({"cut", "copy", "paste"});
    list->setChoice([&](std::int32_t index) { chosen = index; });
    const nui::WidgetPtr cut = list->list().children()[0];
    const nui::Color before = cut->color;
    cut->setEnabled(false);
    EXPECT_EQ(cut->color & ~nui::AlphaMask, before & ~nui::AlphaMask);
    EXPECT_LT(cut->color, before);
    list->openAt({290, 190}, nullptr);
    toolkit.frame();
    EXPECT_EQ(list->localX + list->width, 300);
    EXPECT_EQ(list->localY + list->height, 200);
    click(*cut);
    EXPECT_TRUE(list->isOpen());
    click(*list->list().children()[2]);
    EXPECT_EQ(chosen, 2);
    cut->setEnabled(true);
    EXPECT_EQ(cut->color, before);
}

TEST_F(drop_down_test, a_clone_opens_a_list_of_its_own)
{
    openDropDown(0, ", 'selected': 2");
    click("choice");
    choice->closeList();
    const auto copy = addClone(*choice);
    click(*copy);
    click(*popup()->list().children()[0]);
    EXPECT_EQ(copy->selectedText(), "one");
    EXPECT_EQ(choice->selectedText(), "three");
}

TEST_F(drop_down_test, the_list_goes_with_the_drop_down)
{
    openDropDown();
    click("choice");
    screen->remove(find("choice").get());
    layOutAnew();
    EXPECT_EQ(popup(), nullptr);
}

} // namespace
