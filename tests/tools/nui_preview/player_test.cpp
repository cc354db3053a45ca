#include "tools/nui_preview/player.h"

#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/widgets/screen.h"
#include "support/nui/event_log.h"
#include "support/nui/running_toolkit.h"

#include <SDL2/SDL.h>
#include <gtest/gtest.h>

namespace {

using namespace nrd::tools::preview;

class player_test : public testing::Test {
protected:
    player_test()
    {
        screen_ = toolkit_.open(
            "{'widgets': [{'id': 'screen', 'name': 'screen', 'class': 'Screen',"
            "'windowWidth': 200, 'windowHeight': 120, 'borderless': true, 'layout': 'Horizontal',"
            "'children': [{'name': 'left', 'class': 'Widget'},"
            "{'id': 'right_id', 'class': 'Widget'},"
            "{'name': 'holder', 'class': 'PagesContainer', 'width': 0, 'children': ["
            "{'name': 'one', 'class': 'Widget'},"
            "{'name': 'two', 'class': 'Widget', 'visibility': 'Collapsed'}]}]}]}");
        left_ = screen_->findByName("left");
        log_.listen(*left_);
    }

    /// What the left widget heard of it, or the fault.
    std::string played(const std::string& script)
    {
        try {
            player(input_).play(parse_play_script(script));
        } catch (const script_error& error) {
            return "line " + std::to_string(error.line) + ": " + error.what();
        }
        return log_.takeWithoutHover();
    }

    nui::test::RunningToolkit toolkit_;
    std::shared_ptr<nui::Screen> screen_;
    nui::Widget* left_ = nullptr;
    nui::test::EventLog log_;
    virtual_input input_;
};

TEST_F(player_test, a_click_is_a_press_and_a_release_in_the_middle_of_the_widget)
{
    EXPECT_EQ(played("click left"), "TOUC left 1\nZOUC left 1\nclick left 1\n");
    EXPECT_EQ(nui::engine().pointer.x(), 50);
    EXPECT_EQ(nui::engine().pointer.y(), 60);
    EXPECT_EQ(played("click right_id"), "");
    EXPECT_EQ(nui::engine().pointer.x(), 150);
}

TEST_F(player_test, clicks_in_quick_succession_at_one_place_are_double)
{
    const std::string click = "TOUC left 1\nZOUC left 1\nclick left 1\n";
    const std::string second = "TOUC left 1\nZOUC left 1\ndouble left 1\nclick left 1\n";
    EXPECT_EQ(played("click left\nclick left"), click + second);
    EXPECT_EQ(played("wait 0.6\nclick left\nwait 0.6\nclick left"), click + click);
    EXPECT_EQ(played("wait 0.6\nmove 10 10\npress\nrelease\nmove 10 60\npress\nrelease"),
              click + click);
}

TEST_F(player_test, keys_and_texts_come_to_the_widget_that_has_the_focus)
{
    EXPECT_EQ(played("focus left"), "KEYB left 1\n");
    EXPECT_EQ(played("key a ctrl"), "MEYB left 1\nNEYB left 1\n");
    std::string heard;
    subscribe(
        *left_, nui::text::Committed,
        [](nui::WidgetEvent& event) {
            *static_cast<std::string*>(event.user) +=
                "[" + static_cast<nui::TextEvent&>(event).text + "]";
        },
        &heard);
    const std::string text = "a text of more bytes than an event of SDL's can hold";
    played("type ab c\ntype " + text);
    EXPECT_EQ(heard, "[ab c][" + text + "]");
}

TEST_F(player_test, what_is_pressed_is_held_while_the_pointer_moves)
{
    std::string held;
    const auto remember = [](nui::WidgetEvent& event) {
        *static_cast<std::string*>(event.user) +=
            std::to_string(static_cast<nui::TouchEvent&>(event).buttons);
    };
    nui::subscribe(*left_, nui::touch::Move, remember, &held);
    played("move 5 6\npress left\nmove 6 6\nrelease left\nmove 7 6\npress right\nmove 8 6");
    EXPECT_EQ(held, "0104");
}

TEST_F(player_test, the_users_own_pointer_is_not_heard)
{
    SDL_Event event = {};
    event.motion.type = SDL_MOUSEMOTION;
    event.motion.windowID = screen_->windowId();
    event.motion.x = 33;
    played("move 5 6");
    SDL_PushEvent(&event);
    played("wait 0.1");
    EXPECT_EQ(nui::engine().pointer.x(), 5);
}

TEST_F(player_test, what_cannot_be_played_is_told_with_its_line)
{
    EXPECT_EQ(played("click left\nfocus nobody"), "line 2: There is no widget \"nobody\".");
    EXPECT_EQ(played("click two"), "line 1: The widget \"two\" is not on the screen.");
    EXPECT_EQ(played("show nobody"), "line 1: There is no page \"nobody\".");
    EXPECT_EQ(played("move 1 1\ntree /no such folder/tree.json"),
              "line 2: The file /no such folder/tree.json cannot be written.");
}

} // namespace
