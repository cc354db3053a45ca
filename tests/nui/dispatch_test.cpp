#include "nui/events/dispatch.h"

#include "nui/widgets/widget.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using nui::EventType;
using nui::Phase;
using nui::Widget;
using nui::WidgetEvent;

constexpr EventType Tag = nui::touch::Press;

struct Note {
    std::string* log;
    std::string text;
    std::uint32_t level = nui::stop_level::None;
};

void note(WidgetEvent& event)
{
    const Note& own = *static_cast<Note*>(event.user);
    *own.log += own.text + std::to_string(static_cast<int>(event.phase)) + " ";
    if (own.level != nui::stop_level::None)
        event.stop(own.level);
}

class dispatch_test : public testing::Test {
protected:
    dispatch_test()
    {
        parent->parent = grandparent.get();
        child->parent = parent.get();
    }

    std::string log;
    nui::WidgetPtr grandparent = std::make_shared<Widget>();
    nui::WidgetPtr parent = std::make_shared<Widget>();
    nui::WidgetPtr child = std::make_shared<Widget>();
    Note first{&log, "first"};
    Note second{&log, "second"};
    Note outer{&log, "outer"};
    Note outermost{&log, "outermost"};
};

TEST_F(dispatch_test, subscribing_again_moves_an_entry_to_the_end)
{
    subscribe(*child, Tag, note, &first);
    subscribe(*child, Tag, note, &second);
    subscribe(*child, Tag, note, &first);
    nui::send(*child, Tag);
    EXPECT_EQ(log, "second1 first1 ");
}

TEST_F(dispatch_test, unsubscribing_takes_every_user_of_the_function_and_no_other_type)
{
    subscribe(*child, Tag, note, &first);
    subscribe(*child, Tag, note, &second);
    subscribe(*child, nui::touch::Release, note, &outer);
    unsubscribe(*child, Tag, note);
    nui::send(*child, Tag);
    nui::send(*child, nui::touch::Release);
    EXPECT_EQ(log, "outer1 ");
}

TEST_F(dispatch_test, each_stop_level_ends_what_it_must)
{
    struct {
        std::uint32_t level;
        const char* heard;
    } const cases[] = {{0, "first1 second1 outer2 outermost2 "},
                       {1, "first1 second1 outer2 outermost2 "},
                       {100, "first1 second1 outer2 outermost2 "},
                       {101, "first1 second1 "},
                       {102, "first1 "}};
    subscribe(*child, Tag, note, &first);
    subscribe(*child, Tag, note, &second);
    subscribe(*parent, Tag, note, &outer);
    subscribe(*grandparent, Tag, note, &outermost);
    for (const auto& [level, heard] : cases) {
        log.clear();
        first.level = level;
        WidgetEvent event(Tag);
        bubble(*child, event);
        EXPECT_EQ(log, heard) << level;
        EXPECT_EQ(event.source, child.get());
    }
}

void removeItself(WidgetEvent& event)
{
    note(event);
    unsubscribe(*event.target, Tag, removeItself);
}

void addAnother(WidgetEvent& event)
{
    note(event);
    static Note added{static_cast<Note*>(event.user)->log, "added"};
    subscribe(*event.target, Tag, note, &added);
}

TEST_F(dispatch_test, a_listener_may_change_the_list_that_is_being_called)
{
    subscribe(*child, Tag, removeItself, &first);
    subscribe(*child, Tag, addAnother, &second);
    subscribe(*child, Tag, note, &outer);
    nui::send(*child, Tag);
    EXPECT_EQ(log, "first1 second1 outer1 added1 ");
}

void removeAllButLast(WidgetEvent& event)
{
    note(event);
    unsubscribe(*event.target, Tag, removeItself);
    unsubscribe(*event.target, Tag, removeAllButLast);
}

TEST_F(dispatch_test, removing_several_entries_skips_none_of_the_others)
{
    subscribe(*child, Tag, removeItself, &first);
    subscribe(*child, Tag, removeItself, &second);
    subscribe(*child, Tag, removeAllButLast, &outer);
    subscribe(*child, Tag, note, &outermost);
    nui::send(*child, Tag);
    nui::send(*child, Tag);
    EXPECT_EQ(log, "first1 outer1 outermost1 outermost1 ");
}

void leaveTheTree(WidgetEvent& event)
{
    note(event);
    event.target->parent = nullptr;
}

TEST_F(dispatch_test, a_widget_that_leaves_the_tree_ends_the_bubbling)
{
    subscribe(*child, Tag, leaveTheTree, &first);
    subscribe(*parent, Tag, note, &outer);
    WidgetEvent event(Tag);
    bubble(*child, event);
    EXPECT_EQ(log, "first1 ");
}

TEST_F(dispatch_test, a_clone_serves_itself_with_listeners_of_its_own)
{
    subscribe(
        *child, Tag, [](WidgetEvent& event) { static_cast<Widget*>(event.user)->toolTip = "told"; },
        static_cast<Widget*>(child.get()));
    child->id = "original";
    const nui::WidgetPtr copy = child->clone();
    nui::send(*copy, Tag);
    EXPECT_EQ(copy->toolTip, "told");
    EXPECT_EQ(child->toolTip, "");
    EXPECT_EQ(copy->id, "");
    EXPECT_EQ(copy->parent, nullptr);
    EXPECT_NE(copy->listeners(), child->listeners());
}

} // namespace
