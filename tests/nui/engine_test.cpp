#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/widgets/screen.h"
#include "nui/widgets/text_label.h"
#include "support/nui/event_log.h"
#include "support/nui/layout_folder.h"
#include "support/nui/running_toolkit.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>

namespace {

using nui::engine;

const std::string windowJson = R"({'widgets': [{'class': 'Screen', 'id': 'screen', 'name': 'screen',
    'windowWidth': 120, 'windowHeight': 80, 'borderless': true, 'children': [
        {'class': 'Widget', 'name': 'inside'}]}]})";

void pushQuit()
{
    SDL_Event quit = {};
    quit.type = SDL_QUIT;
    SDL_PushEvent(&quit);
}

class engine_test : public testing::Test {
protected:
    /// Milliseconds from one frame to the next.
    std::uint64_t frameTime()
    {
        while (!engine().step())
            toolkit.clock.advance(1);
        std::uint64_t time = 0;
        do {
            toolkit.clock.advance(1);
            ++time;
        } while (!engine().step());
        return time;
    }

    nui::test::RunningToolkit toolkit;
};

TEST_F(engine_test, frames_are_slow_when_idle_and_fast_while_something_moves)
{
    const auto screen = toolkit.open(windowJson);
    EXPECT_EQ(frameTime(), 66U);
    engine().setKeepFast(true);
    (void)engine().step();
    EXPECT_EQ(frameTime(), 16U);
    engine().setKeepFast(false);
    (void)engine().step();
    EXPECT_EQ(frameTime(), 66U);
    float moved = 0;
    createTween(engine().tweens, 1, {nui::tween_item::value(&moved, 1.0F)});
    engine().step();
    EXPECT_FALSE(engine().hasFastFrames());
    engine().step();
    EXPECT_TRUE(engine().hasFastFrames());
    toolkit.clock.advance(2000);
    engine().step();
    engine().step();
    EXPECT_FALSE(engine().hasFastFrames());
}

TEST_F(engine_test, a_refused_close_keeps_the_window_and_swallows_the_quit_behind_it)
{
    const auto screen = toolkit.open(windowJson);
    subscribe(
        *screen, nui::window::Closing, [](nui::WidgetEvent& event) { event.prevented = true; },
        nullptr);
    toolkit.windowEvent(SDL_WINDOWEVENT_CLOSE, *screen);
    pushQuit();
    toolkit.turn();
    EXPECT_TRUE(screen->isOpen());
    EXPECT_FALSE(engine().hasQuit());
    pushQuit();
    toolkit.turn();
    EXPECT_TRUE(engine().hasQuit());
}

TEST_F(engine_test, closing_the_last_window_quits_with_the_next_draw)
{
    engine().draw(true);
    EXPECT_FALSE(engine().hasQuit());
    const auto screen = toolkit.open(windowJson);
    toolkit.windowEvent(SDL_WINDOWEVENT_CLOSE, *screen);
    EXPECT_FALSE(screen->isOpen());
    EXPECT_FALSE(engine().hasQuit());
    engine().draw(true);
    EXPECT_TRUE(engine().hasQuit());
}

TEST_F(engine_test, a_window_that_comes_before_the_draw_keeps_the_loop_running)
{
    engine().closeScreen(toolkit.open(windowJson));
    const auto next = toolkit.open(windowJson);
    engine().draw(true);
    EXPECT_FALSE(engine().hasQuit());
}

TEST_F(engine_test, a_screen_without_a_window_is_dropped_and_the_last_one_quits)
{
    const auto open = toolkit.open(windowJson);
    const auto unopened = std::make_shared<nui::Screen>();
    engine().addScreen(unopened);
    engine().draw(true);
    EXPECT_EQ(engine().screens.all().size(), 1U);
    EXPECT_FALSE(engine().hasQuit());
    engine().closeScreen(open);
    engine().addScreen(unopened);
    engine().draw(true);
    EXPECT_TRUE(engine().hasQuit());
}

TEST_F(engine_test, a_modal_window_blocks_its_parent_and_gives_it_back)
{
    const auto parent = toolkit.open(windowJson);
    const auto modal = toolkit.open(windowJson, parent.get());
    EXPECT_FALSE(parent->window->enabled);
    engine().closeScreen(modal);
    EXPECT_TRUE(parent->window->enabled);
    EXPECT_EQ(engine().keyboard.focusScreen, parent);
    EXPECT_EQ(engine().screens.mainScreen(), parent);
}

TEST_F(engine_test, closing_a_screen_lets_go_of_all_that_lies_in_it)
{
    const auto other = toolkit.open(windowJson);
    const auto screen = toolkit.open(windowJson);
    toolkit.press(10, 10);
    engine().setFocus(screen->findByName("inside")->shared_from_this());
    ASSERT_NE(engine().pointer.pressed(), nullptr);
    ASSERT_NE(engine().pointer.hover(), nullptr);
    engine().closeScreen(screen);
    EXPECT_EQ(engine().pointer.pressed(), nullptr);
    EXPECT_EQ(engine().pointer.hover(), nullptr);
    EXPECT_EQ(engine().keyboard.focusScreen, nullptr);
    EXPECT_EQ(engine().screens.current(), nullptr);
    toolkit.frame();
    EXPECT_EQ(engine().screens.current(), other);
}

TEST_F(engine_test, an_event_for_an_unknown_window_is_ignored)
{
    const auto screen = toolkit.open(windowJson);
    nui::test::EventLog log;
    log.listen(*screen);
    SDL_Event event = {};
    event.window.type = SDL_WINDOWEVENT;
    event.window.windowID = screen->windowId() + 77;
    event.window.event = SDL_WINDOWEVENT_CLOSE;
    SDL_PushEvent(&event);
    toolkit.turn();
    EXPECT_TRUE(screen->isOpen());
    EXPECT_EQ(log.take(), "");
}

TEST_F(engine_test, an_open_window_speaks_a_new_language_at_once)
{
    const nui::test::LayoutFolder folder;
    folder.write("langfile.txt", "key\ten\tde\nOK\tFine\tGut\n");
    engine().lang = std::make_unique<nui::Lang>(folder.path() + "langfile.txt");
    engine().changeLanguageAndFont("en", false, [](const std::string&) {});
    const auto screen = toolkit.open(
        "{'widgets': [{'class': 'Screen', 'id': 'screen', 'windowWidth': 120, 'windowHeight': 80,"
        "'children': [{'class': 'TextLabel', 'name': 'label', 'text': 'OK'}]}]}");
    auto& label = dynamic_cast<nui::TextLabel&>(*screen->findByName("label"));
    EXPECT_EQ(label.getText(), "Fine");
    engine().changeLanguageAndFont("de", false, [](const std::string&) {});
    EXPECT_EQ(label.getText(), "Gut");
    // The program's text lasts until the language changes, and is no key.
    label.setText("OK");
    EXPECT_EQ(label.getText(), "OK");
    engine().changeLanguageAndFont("en", false, [](const std::string&) {});
    EXPECT_EQ(label.getText(), "Fine");
}

TEST_F(engine_test, minimized_and_hidden_windows_are_not_drawn)
{
    const auto screen = toolkit.open(windowJson);
    screen->markDirty();
    toolkit.windowEvent(SDL_WINDOWEVENT_MINIMIZED, *screen);
    engine().draw(true);
    EXPECT_TRUE(screen->dirty);
    toolkit.windowEvent(SDL_WINDOWEVENT_RESTORED, *screen);
    screen->window->hide();
    toolkit.windowEvent(SDL_WINDOWEVENT_HIDDEN, *screen);
    toolkit.windowEvent(SDL_WINDOWEVENT_SHOWN, *screen);
    engine().draw(true);
    EXPECT_TRUE(screen->dirty);
    screen->show();
    engine().draw(true);
    EXPECT_FALSE(screen->dirty);
}

TEST_F(engine_test, a_resize_is_told_before_and_after_and_lays_out_again)
{
    const auto screen = toolkit.open(windowJson);
    nui::test::EventLog log;
    log.listen(*screen);
    SDL_SetWindowSize(screen->window->sdlWindow(), 150, 90);
    toolkit.windowEvent(SDL_WINDOWEVENT_RESIZED, *screen);
    EXPECT_EQ(log.take(), "XIND screen 1\nYIND screen 1\n");
    toolkit.frame();
    EXPECT_EQ(nui::test::rectangles(*screen), "screen 0 0 150 90\n inside 0 0 150 90\n");
}

TEST_F(engine_test, a_timer_from_another_thread_reaches_its_widget_once)
{
    const auto screen = toolkit.open(windowJson);
    const auto widget = screen->findByName("inside")->shared_from_this();
    nui::test::EventLog log;
    log.listen(*widget);
    std::thread([&widget] { engine().addTimer(50, widget, false); }).join();
    toolkit.turnAfter(49);
    EXPECT_EQ(log.take(), "");
    toolkit.turnAfter(1);
    toolkit.turnAfter(500);
    EXPECT_EQ(log.take(), "TIME inside 1\n");
}

} // namespace
