#include "nui/menus/popup_menu.h"

#include "nui/engine/engine.h"
#include "nui/reader/layout_loader.h"
#include "support/nui/layout.h"
#include "support/nui/layout_folder.h"
#include "support/nui/menu_text.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>

namespace {

using nui::MenuEvent;
using nui::PopupMenu;
using nui::PopupMenuItem;
using nui::PopupMenuItemPtr;
using nui::PopupMenuPtr;

class menu_test : public testing::Test {
protected:
    /// The menu "m" of a file with these menus.
    PopupMenuPtr load(const std::string& menus)
    {
        folder.write("main.json", "{'menus': [" + menus + "]}");
        nui::LayoutLoader loader("main.json");
        loader.load();
        loaded = loader.pack().menus;
        return loaded.at("m");
    }

    nui::test::MeasuringEngine engine;
    nui::test::LayoutFolder folder;
    std::map<std::string, PopupMenuPtr> loaded;
};

std::string itemsText(const PopupMenu& menu)
{
    std::string text;
    for (const PopupMenuItemPtr& item : menu.children()) {
        text += item->name + "=" + item->text() + (item->hasTextKey() ? "" : " without key") +
                (item->radio ? " radio" : "") + (item->checked ? " checked" : "");
        if (const auto inner = std::dynamic_pointer_cast<PopupMenu>(item))
            text += " {" + itemsText(*inner) + "}";
        text += "; ";
    }
    return text;
}

TEST_F(menu_test, items_take_text_and_radio_from_their_menus_defaults)
{
    const PopupMenuPtr menu =
        load("{'id': 'm', 'main': true, 'defaultTextKey': 'size_*_*', 'defaultRadio': true,"
             "'children': [{'name': 'a'}, {'name': 'b', 'text': 'B', 'radio': false}, {},"
             "{'name': 'c', 'text': '', 'checked': true},"
             "{'text': 'more', 'children': [{'name': 'd'}]}]}");
    EXPECT_EQ(itemsText(*menu), "a=size_a_a radio; b=B; = without key radio; "
                                "c=size_c_c radio checked; =more radio {d= without key; }; ");
    EXPECT_TRUE(menu->isBar());
    EXPECT_FALSE(std::dynamic_pointer_cast<PopupMenu>(menu->children().back())->isBar());
}

TEST_F(menu_test, a_menu_named_in_others_is_shared_and_has_no_parent)
{
    const PopupMenuPtr menu = load("{'id': 's', 'text': 'old'}, {'text': 'lost'},"
                                   "{'id': 's', 'text': 'shared', 'children': [{'text': 'x'}]},"
                                   "{'id': 'm', 'children': ['s', {'text': 'own'}]},"
                                   "{'id': 'n', 'children': ['s']}");
    EXPECT_EQ(loaded.size(), 3U);
    EXPECT_EQ(itemsText(*menu), "=shared {=x; }; =own; ");
    EXPECT_EQ(menu->children().front(), loaded.at("n")->children().front());
    EXPECT_EQ(menu->children().front()->parent, nullptr);
    EXPECT_EQ(menu->children().back()->parent, menu.get());
}

TEST_F(menu_test, numbers_are_given_once_from_1000_and_make_an_item_known)
{
    const PopupMenuPtr menu = load("{'id': 'm', 'children': [{'text': 'a'},"
                                   "{'text': 'b', 'key': 'Ctrl+B'}]}");
    const PopupMenuItemPtr plain = menu->children().front();
    const PopupMenuItemPtr withKey = menu->children().back();
    ASSERT_EQ(nui::engine().menuItems().size(), 1U);
    EXPECT_EQ(nui::engine().menuItems().front().lock(), withKey);
    EXPECT_FALSE(plain->hasCommand(0));
    const std::uint32_t number = plain->command();
    EXPECT_GE(number, 1000U);
    EXPECT_EQ(plain->command(), number);
    EXPECT_TRUE(plain->hasCommand(number));
    EXPECT_EQ(withKey->command(), number + 1);
    ASSERT_EQ(nui::engine().menuItems().size(), 2U);
    EXPECT_EQ(nui::engine().menuItems().back().lock(), plain);
}

struct Note {
    std::string* log;
    std::uint32_t level;
};

void note(MenuEvent& event)
{
    const Note& own = *static_cast<Note*>(event.user);
    *own.log += event.target->text() + std::to_string(static_cast<int>(event.phase)) + " of " +
                event.source->text() + "; ";
    event.stop(own.level);
}

TEST_F(menu_test, activation_goes_up_the_menus_until_it_is_ended)
{
    struct {
        std::uint32_t level;
        const char* heard;
    } const cases[] = {{100, "item1 of item; middle2 of item; outer2 of item; "},
                       {101, "item1 of item; "}};
    for (const auto& [level, heard] : cases) {
        const PopupMenuPtr menu =
            load("{'id': 'm', 'text': 'outer', 'children': [{'text': 'middle', 'children': ["
                 "{'text': 'item'}]}]}");
        const auto middle = std::dynamic_pointer_cast<PopupMenu>(menu->children().front());
        const PopupMenuItemPtr item = middle->children().front();
        std::string log;
        Note own{&log, level};
        for (PopupMenuItem* const each :
             std::initializer_list<PopupMenuItem*>{item.get(), middle.get(), menu.get()})
            each->listeners.subscribe(nui::plain_event::Activate, note, &own);
        activate(*item);
        EXPECT_EQ(log, heard);
    }
}

TEST_F(menu_test, an_item_outlives_its_menu)
{
    const PopupMenuItemPtr item = load("{'id': 'm', 'children': [{'text': 'a'}]}")->children()[0];
    loaded.clear();
    EXPECT_EQ(item->parent, nullptr);
    activate(*item);
}

TEST_F(menu_test, the_native_menu_shows_the_visible_items_as_they_are_when_it_opens)
{
    const PopupMenuPtr menu =
        load("{'id': 's', 'text': 'shared', 'children': [{'text': 'x'}]},"
             "{'id': 'm', 'main': true, 'children': [{'text': '\xC3\x96"
             "ffnen', 'key': 'Ctrl+o'},"
             "{'text': 'gone', 'visible': false}, {}, {'text': 'dot', 'radio': true,"
             "'checked': true}, {'text': 'tick', 'checked': true, 'enabled': false}, 's',"
             "{'text': 'more', 'enabled': false, 'children': [{'text': 'y'}]}]},"
             "{'id': 'n', 'children': ['s']}");
    void* const native = menu->nativeMenu();
    EXPECT_EQ(nui::test::menuText(native), "\xC3\x96"
                                           "ffnen [Ctrl+O]\n"
                                           "---\n"
                                           "dot (dot)\n"
                                           "tick (tick) (grey)\n"
                                           "shared >\n"
                                           "more (grey) >\n");
    EXPECT_EQ(menu->nativeMenu(), native);
    EXPECT_EQ(nui::test::menuText(loaded.at("n")->nativeMenu()), "shared >\n");

    menu->listeners.subscribe(
        nui::plain_event::WindowOpening,
        [](MenuEvent& event) {
            const PopupMenu& self = *static_cast<PopupMenu*>(event.target);
            self.children()[1]->visible = true;
            self.children()[4]->enabled = true;
        },
        nullptr);
    nui::engine().nativeMenuOpens(native);
    EXPECT_EQ(nui::test::menuText(native), "\xC3\x96"
                                           "ffnen [Ctrl+O]\n"
                                           "gone\n"
                                           "---\n"
                                           "dot (dot)\n"
                                           "tick (tick)\n"
                                           "shared >\n"
                                           "more (grey) >\n");

    // The other menu that shows it is none the worse for the end of this one.
    loaded.erase("m");
    EXPECT_EQ(nui::test::menuText(loaded.at("n")->nativeMenu()), "shared >\n");
    EXPECT_EQ(nui::test::menuText(loaded.at("s")->nativeMenu()), "x\n");
}

} // namespace
