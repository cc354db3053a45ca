#include "nui/engine/engine.h"
#include "nui/widgets/selection_list.h"
#include "nui/widgets/solid_scrollbar.h"
#include "nui/widgets/text_label.h"
#include "support/nui/control_test.h"

#include <SDL_keyboard.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

namespace {

using nui::ListBox;
using nui::SelectionList;

// Rows of 20 pixels, of which five are seen.
constexpr const char* Row = "{'class': 'TextLabel', 'id': 'row', 'height': 20}";

std::string listOf(const char* className)
{
    return std::string("{'class': '") + className +
           "', 'name': 'list', 'width': 100, 'height': 100, 'itemTemplate': 'row', 'items': "
           "['zero', 'one', 'two', 'three', 'four', 'five', 'six', 'seven', 'eight', 'nine']}";
}

class list_box_test : public nui::test::ControlTest {
protected:
    void openList(const char* className, const std::string& more = "")
    {
        open(listOf(className) + more, Row);
        noteActivations("list", [this] { return state(); });
    }

    ~list_box_test() override { SDL_SetModState(KMOD_NONE); }

    [[nodiscard]] std::string state() const
    {
        const auto& list = get<ListBox>("list");
        std::string selected;
        for (std::int32_t index = 0; index < static_cast<std::int32_t>(list.count()); ++index) {
            if (list.isSelected(index))
                selected += std::to_string(index);
        }
        return selected;
    }

    void clickItem(std::size_t index, SDL_Keymod modifiers = KMOD_NONE)
    {
        SDL_SetModState(modifiers);
        click(*get<ListBox>("list").children()[index]);
        SDL_SetModState(KMOD_NONE);
    }
};

TEST_F(list_box_test, the_pointer_selects_one_item_and_another_raises_once)
{
    openList("ListBox");
    clickItem(1);
    EXPECT_EQ(taken(), "1 ");
    EXPECT_EQ(focused(), "list");
    clickItem(1);
    EXPECT_EQ(taken(), "");
    get<ListBox>("list").children()[3]->setEnabled(false);
    clickItem(3);
    EXPECT_EQ(state(), "1") << "a disabled item is none to select";
    get<ListBox>("list").select(4);
    get<ListBox>("list").select(99);
    EXPECT_EQ(state(), "4");
    EXPECT_EQ(taken(), "") << "from the program";
    get<ListBox>("list").setEnabled(false);
    clickItem(2);
    EXPECT_EQ(state(), "4");
}

TEST_F(list_box_test, keys_move_the_selection_past_what_is_disabled)
{
    openList("ListBox");
    focus("list");
    get<ListBox>("list").children()[1]->setEnabled(false);
    toolkit.keys({SDLK_DOWN, SDLK_DOWN, SDLK_PAGEDOWN, SDLK_END, SDLK_DOWN, SDLK_UP, SDLK_PAGEUP,
                  SDLK_HOME});
    EXPECT_EQ(taken(), "0 2 6 9 8 4 0 ");
}

TEST_F(list_box_test, a_letter_leads_on_and_letters_soon_after_it_say_more)
{
    openList("ListBox");
    focus("list");
    const auto typed = [this](std::initializer_list<const char*> letters) {
        toolkit.clock.advance(1000);
        for (const char* const letter : letters) {
            toolkit.clock.advance(900);
            toolkit.type(letter);
        }
        return taken();
    };
    EXPECT_EQ(typed({"f", "F", "f"}), "4 5 4 ");
    EXPECT_EQ(typed({"t", "h"}), "2 3 ");
    EXPECT_EQ(typed({"s", "e", "x", "n"}), "6 7 ");
    EXPECT_EQ(typed({"n"}), "9 ");
    get<ListBox>("list").setItems({"new jersey", "newt", "new york"});
    EXPECT_EQ(typed({" ", "N", "e", "w", " ", "y"}), "0 2 ");
}

TEST_F(list_box_test, a_blank_among_letters_is_no_command)
{
    openList("SelectionList");
    focus("list");
    toolkit.type("t");
    toolkit.key(SDLK_SPACE);
    EXPECT_EQ(taken(), "2 ");
    toolkit.clock.advance(1000);
    toolkit.key(SDLK_SPACE);
    EXPECT_EQ(state(), "");
}

TEST_F(list_box_test, the_selected_item_is_scrolled_into_view_also_before_the_first_frame)
{
    openList("ListBox");
    auto& list = get<ListBox>("list");
    list.select(7);
    EXPECT_EQ(list.scrollY, -60);
    list.select(0);
    EXPECT_EQ(list.scrollY, 0);
    list.setItems({"a", "b", "c", "d", "e", "f", "g"});
    list.select(6);
    toolkit.frame();
    EXPECT_EQ(list.scrollY, -40);
    EXPECT_EQ(list.itemText(6), "g");
    EXPECT_EQ(list.indexOf("c"), 2);
    EXPECT_EQ(list.indexOf("zero"), ListBox::None);
}

TEST_F(list_box_test, several_items_are_selected_with_ctrl_and_shift)
{
    openList("SelectionList");
    clickItem(1);
    clickItem(3, KMOD_LCTRL);
    clickItem(4, KMOD_RCTRL);
    clickItem(3, KMOD_LCTRL);
    EXPECT_EQ(taken(), "1 13 134 14 ");
    clickItem(1, KMOD_LSHIFT);
    EXPECT_EQ(taken(), "123 ") << "from where Ctrl was last";
    clickItem(2);
    EXPECT_EQ(taken(), "2 ");
}

TEST_F(list_box_test, keys_select_several_items)
{
    openList("SelectionList");
    focus("list");
    toolkit.keys({SDLK_DOWN, {SDLK_DOWN, KMOD_LSHIFT}, {SDLK_DOWN, KMOD_LSHIFT}});
    EXPECT_EQ(taken(), "0 01 012 ");
    toolkit.key(SDLK_DOWN, KMOD_LCTRL);
    EXPECT_EQ(taken(), "");
    toolkit.key(SDLK_SPACE);
    EXPECT_EQ(taken(), "0123 ");
    toolkit.keys({{SDLK_a, KMOD_LCTRL}, {SDLK_a, KMOD_LCTRL}});
    EXPECT_EQ(taken(), "0123456789 ");
    get<SelectionList>("list").setSelection({5, 70});
    EXPECT_EQ(state(), "5");
    get<SelectionList>("list").select(2);
    EXPECT_EQ(state(), "2");
    EXPECT_EQ(taken(), "");
}

TEST_F(list_box_test, a_clone_selects_by_itself)
{
    openList("SelectionList");
    get<SelectionList>("list").select(2);
    const auto copy = std::dynamic_pointer_cast<SelectionList>(find("list")->clone());
    EXPECT_TRUE(copy->isSelected(2));
    copy->select(3);
    copy->setItems({"only"});
    EXPECT_EQ(copy->count(), 1U);
    EXPECT_EQ(state(), "2");
}

constexpr const char* Bar =
    ", {'class': 'SolidScrollbar', 'name': 'bar', 'container': 'list', 'width': 10, 'height': 100}";

// All items are twice as high as the list, so half of the channel is the thumb.
TEST_F(list_box_test, a_scroll_bar_is_dragged_by_its_thumb_and_pages_beside_it)
{
    openList("ListBox", Bar);
    const auto& list = get<ListBox>("list");
    const auto& bar = *find("bar");
    moveTo(bar, 0, -25);
    toolkit.press();
    moveTo(bar, 0, -5);
    EXPECT_EQ(list.scrollY, -40);
    moveTo(bar, 0, 500);
    EXPECT_EQ(list.scrollY, -100) << "the end";
    moveTo(bar, 100, 0);
    toolkit.release();
    moveTo(bar, 0, -45);
    EXPECT_EQ(list.scrollY, -50) << "released";
    toolkit.press();
    toolkit.release();
    EXPECT_EQ(list.scrollY, 0) << "a page towards the start";
    toolkit.wheel(-1);
    EXPECT_EQ(list.scrollY, -20);
}

TEST_F(list_box_test, a_scroll_bar_does_nothing_while_all_can_be_seen)
{
    openList("ListBox", Bar);
    get<ListBox>("list").setItems({"a", "b"});
    toolkit.frame();
    auto& bar = get<nui::SolidScrollbar>("bar");
    EXPECT_EQ(bar.visibleShare(), 1);
    click("bar");
    EXPECT_EQ(get<ListBox>("list").scrollY, 0);
    bar.setContainer(nullptr);
    EXPECT_EQ(bar.container(), find("list").get()) << "it is found by its name again";
}

} // namespace
