#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/widgets/default_tool_tip.h"
#include "support/file_content.h"
#include "support/nui/event_log.h"
#include "support/nui/layout.h"
#include "support/nui/running_toolkit.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using nui::engine;

/// A screen of 200 by 100: "left" and "right" stand side by side in "box", "below" under it.
class pointer_test : public testing::Test {
protected:
    pointer_test()
    {
        screen = toolkit.open(R"({'templates': [
                {'class': 'Widget', 'id': 'hot', 'backgroundColor': '#000002'},
                {'class': 'Widget', 'id': 'deep', 'backgroundColor': '#000003'},
                {'class': 'Widget', 'id': 'button', 'width': 100, 'height': 50,
                 'backgroundColor': '#000001', 'overTemplate': 'hot', 'pressedTemplate': 'deep'}],
            'widgets': [
            {'class': 'Screen', 'id': 'screen', 'name': 'screen',
             'windowWidth': 200, 'windowHeight': 100, 'borderless': true, 'children': [
                {'class': 'Container', 'name': 'box', 'height': 50, 'layout': 'Horizontal',
                 'children': [{'template': 'button', 'name': 'left'},
                              {'template': 'button', 'name': 'right'}]},
                {'class': 'Widget', 'name': 'below', 'height': 50, 'toolTip': 'about below'}]}]})");
        for (const char* const name : {"screen", "box", "left", "right", "below"})
            log.listen(*screen->findByName(name));
        // Where nothing is, whatever the window system thinks of the pointer.
        toolkit.move(-1, -1);
        (void)log.take();
    }

    /// The background's number of each widget that has states.
    std::string looks()
    {
        std::string text;
        for (const char* const name : {"left", "right"})
            text += std::to_string((screen->findByName(name)->backgroundColor >> 16U) & 0xFFU);
        return text;
    }

    nui::test::EventLog log;
    nui::test::RunningToolkit toolkit;
    std::shared_ptr<nui::Screen> screen;
};

TEST_F(pointer_test, an_event_goes_to_the_deepest_widget_and_bubbles_through_its_containers)
{
    toolkit.move(10, 10);
    EXPECT_EQ(log.take(), "UOUC left 1\nUOUC box 2\nUOUC screen 2\n"
                          "VOUC left 1\n"
                          "XOUC left 1\nXOUC box 2\nXOUC screen 2\n");
    toolkit.press();
    EXPECT_EQ(log.take(), "TOUC left 1\nTOUC box 2\nTOUC screen 2\n");
    toolkit.release();
    EXPECT_EQ(log.take(), "ZOUC left 1\nZOUC box 2\nZOUC screen 2\n"
                          "click left 1\nclick box 2\nclick screen 2\n");
    toolkit.press();
    toolkit.release(1, 2);
    EXPECT_EQ(log.take(), "TOUC left 1\nTOUC box 2\nTOUC screen 2\n"
                          "ZOUC left 1\nZOUC box 2\nZOUC screen 2\n"
                          "double left 1\ndouble box 2\ndouble screen 2\n"
                          "click left 1\nclick box 2\nclick screen 2\n");
}

TEST_F(pointer_test, only_the_part_of_the_chain_that_differs_is_left_and_entered)
{
    toolkit.move(10, 10);
    (void)log.take();
    toolkit.move(110, 10);
    EXPECT_EQ(log.take(), "UOUC right 1\nUOUC box 2\nUOUC screen 2\n"
                          "YOUC left 1\nWOUC left 1\nVOUC right 1\nXOUC right 1\n");
    toolkit.move(110, 60);
    EXPECT_EQ(log.take(), "UOUC below 1\nUOUC screen 2\n"
                          "YOUC right 1\nYOUC box 2\n"
                          "WOUC right 1\nVOUC below 1\nXOUC below 1\n");
}

TEST_F(pointer_test, looks_follow_the_pointer_and_the_press)
{
    EXPECT_EQ(looks(), "11");
    toolkit.move(10, 10);
    EXPECT_EQ(looks(), "21");
    toolkit.press();
    EXPECT_EQ(looks(), "31");
    toolkit.release();
    EXPECT_EQ(looks(), "21");
    toolkit.press();
    toolkit.move(110, 10);
    EXPECT_EQ(looks(), "12");
    EXPECT_EQ(engine().pointer.pressed(), nullptr);
    toolkit.release();
    EXPECT_EQ(log.takeWithoutHover().find("click right"), std::string::npos);
}

TEST_F(pointer_test, a_captured_pointer_stays_with_its_widget_until_all_buttons_are_up)
{
    nui::Widget& left = *screen->findByName("left");
    log.listenAndCapture(left);
    toolkit.press(10, 10);
    EXPECT_EQ(engine().pointer.captured().get(), &left);
    (void)log.take();
    toolkit.move(110, 60);
    // "below" hears of it first, as it lies there; the capturing one by itself, and only once.
    EXPECT_EQ(log.take(), "UOUC below 1\nUOUC screen 2\n"
                          "YOUC left 1\nYOUC box 2\nWOUC left 1\nVOUC below 1\n"
                          "UOUC left 1\nUOUC box 2\nUOUC screen 2\n");
    EXPECT_EQ(engine().pointer.pressed().get(), &left);
    toolkit.move(20, 10);
    EXPECT_EQ(looks(), "31");
    EXPECT_EQ(log.take(), "UOUC left 1\nUOUC box 2\nUOUC screen 2\n"
                          "YOUC below 1\nWOUC below 1\nVOUC left 1\nXOUC left 1\n");
    toolkit.move(110, 60);
    (void)log.take();
    toolkit.release();
    EXPECT_EQ(log.take(), "ZOUC below 1\nZOUC screen 2\n"
                          "ZOUC left 1\nZOUC box 2\nZOUC screen 2\n");
    EXPECT_EQ(engine().pointer.captured(), nullptr);
    EXPECT_EQ(engine().pointer.pressed(), nullptr);
}

TEST_F(pointer_test, a_button_that_goes_up_in_a_dialog_of_the_system_lets_go_and_releases_nothing)
{
    log.listenAndCapture(*screen->findByName("left"));
    toolkit.press(10, 10);
    (void)log.take();
    SDL_Event event = {};
    event.button.type = SDL_MOUSEBUTTONUP;
    event.button.windowID = screen->windowId();
    event.button.button = SDL_BUTTON_LEFT;
    SDL_PushEvent(&event);
    engine().dropInput();
    toolkit.frame();
    EXPECT_EQ(log.takeWithoutHover(), "");
    EXPECT_EQ(engine().pointer.captured(), nullptr);
    EXPECT_EQ(engine().pointer.pressed(), nullptr);
    EXPECT_EQ(looks(), "21");
}

TEST_F(pointer_test, a_stopped_release_is_no_click)
{
    log.stopAt("left", nui::touch::Release, 1);
    toolkit.click(10, 10);
    EXPECT_EQ(log.takeWithoutHover(),
              "TOUC left 1\nTOUC box 2\nTOUC screen 2\nZOUC left 1\nZOUC screen 2\n");
}

TEST_F(pointer_test, a_container_whose_children_are_not_touched_is_hit_itself)
{
    dynamic_cast<nui::Container&>(*screen->findByName("box")).childrenTouch = false;
    toolkit.press(10, 10);
    EXPECT_EQ(log.takeWithoutHover(), "TOUC box 1\nTOUC screen 2\n");
}

TEST_F(pointer_test, what_is_disabled_or_not_drawn_lets_the_pointer_through)
{
    screen->findByName("left")->setEnabled(false);
    toolkit.press(10, 10);
    EXPECT_EQ(log.takeWithoutHover(), "TOUC box 1\nTOUC screen 2\n");
    toolkit.release();
    screen->findByName("below")->visibility = nui::visibility::Hidden;
    (void)log.take();
    toolkit.press(10, 60);
    EXPECT_EQ(log.takeWithoutHover(), "");
}

TEST_F(pointer_test, the_last_child_is_hit_first)
{
    const auto cover = std::make_shared<nui::Widget>();
    cover->name = "cover";
    cover->visibility = nui::visibility::Overlapping;
    cover->widthMode = cover->heightMode = nui::Percent;
    screen->add(cover);
    screen->markDirty();
    log.listen(*cover);
    toolkit.frame();
    toolkit.press(10, 10);
    EXPECT_EQ(log.takeWithoutHover(), "TOUC cover 1\nTOUC screen 2\n");
}

TEST_F(pointer_test, a_window_that_another_is_modal_over_gets_no_input)
{
    screen->setEnabled(false);
    toolkit.press(10, 10);
    toolkit.wheel(1);
    toolkit.key(SDLK_a);
    EXPECT_EQ(log.take(), "");
    screen->setEnabled(true);
    toolkit.key(SDLK_a);
    EXPECT_EQ(log.take(), "MEYB screen 1\n");
}

TEST_F(pointer_test, a_press_elsewhere_takes_the_keyboard_away)
{
    const auto left = screen->findByName("left")->shared_from_this();
    engine().setFocus(left);
    EXPECT_EQ(log.take(), "KEYB left 1\n");
    toolkit.key(SDLK_a);
    toolkit.type("a");
    EXPECT_EQ(log.take(), "MEYB left 1\nUEXT left 1\n");
    toolkit.press(10, 10);
    EXPECT_EQ(screen->focusedWidget, left);
    toolkit.release();
    toolkit.move(10, 60);
    (void)log.take();
    toolkit.press();
    EXPECT_EQ(log.take(), "TOUC below 1\nTOUC screen 2\nLEYB left 1\n");
    EXPECT_EQ(screen->focusedWidget, nullptr);
}

TEST_F(pointer_test, the_wheel_scrolls_what_is_under_the_pointer_and_tells_once_it_moved)
{
    auto& box = dynamic_cast<nui::Container&>(*screen->findByName("box"));
    engine().metrics.displayScale = 1;
    box.setScrollable(true, false);
    box.minScrollX = -25;
    toolkit.move(10, 10);
    (void)log.take();
    toolkit.wheel(-1);
    EXPECT_EQ(box.scrollX, -20);
    EXPECT_EQ(log.take(), "dOUC left 1\ndOUC box 2\n2 box 1\n1 box 1\ndOUC screen 2\n");
    toolkit.wheel(-1);
    EXPECT_EQ(box.scrollX, -25);
    (void)log.take();
    toolkit.wheel(-1);
    EXPECT_EQ(log.take(), "dOUC left 1\ndOUC box 2\ndOUC screen 2\n");
}

TEST_F(pointer_test, a_drag_scrolls_nothing)
{
    auto& box = dynamic_cast<nui::Container&>(*screen->findByName("box"));
    box.setScrollable(true, true);
    box.minScrollX = box.minScrollY = -25;
    toolkit.press(50, 40);
    EXPECT_EQ(engine().pointer.captured().get(), &box);
    toolkit.move(5, 5);
    toolkit.release();
    EXPECT_EQ(box.scrollX, 0);
    EXPECT_EQ(box.scrollY, 0);
}

TEST_F(pointer_test, a_tool_tip_waits_for_rest_and_shows_under_the_pointer)
{
    const auto shown = [] {
        return engine().toolTips.isShowing() ? engine().toolTips.widget()->getText() : "";
    };
    toolkit.move(10, 60);
    toolkit.clock.advance(700);
    toolkit.move(12, 62);
    toolkit.turnAfter(700);
    EXPECT_EQ(shown(), "");
    toolkit.turnAfter(300);
    EXPECT_EQ(shown(), "about below");
    EXPECT_EQ(engine().toolTips.widget()->localY, 62 + 32);
    EXPECT_EQ(engine().tweens.size(), 1U);
    toolkit.move(10, 10);
    EXPECT_EQ(shown(), "");
    EXPECT_EQ(engine().tweens.size(), 0U);
}

TEST_F(pointer_test, a_tool_tip_speaks_the_language)
{
    const nrd::test::temp_folder folder;
    nrd::test::write_file(folder / "texts", "key\ten\nabout below\tWhat is below\n");
    engine().lang->load(nui::test::hostPath(folder / "texts"));
    engine().lang->setLanguage("en");
    toolkit.move(10, 60);
    toolkit.turnAfter(1000);
    EXPECT_EQ(engine().toolTips.widget()->getText(), "What is below");
}

TEST_F(pointer_test, a_popup_closes_by_a_press_beside_it)
{
    const auto popup = std::make_shared<nui::Container>();
    popup->name = "popup";
    popup->visibility = nui::visibility::Overlapping;
    popup->widthMode = popup->heightMode = nui::Px;
    popup->widthValue = popup->heightValue = 30;
    popup->add(std::make_shared<nui::Widget>());
    engine().showPopup(popup);
    toolkit.frame();
    toolkit.click(10, 10);
    EXPECT_EQ(engine().popups.open(), popup);
    const nui::WidgetPtr inside = popup->children().front();
    engine().setFocus(inside);
    engine().showPopup(popup);
    EXPECT_EQ(screen->focusedWidget, inside) << "shown again, it stays open";
    toolkit.press(60, 10);
    EXPECT_EQ(engine().popups.open(), nullptr);
    EXPECT_EQ(screen->findByName("popup"), nullptr);
}

TEST_F(pointer_test, a_listener_may_close_the_screen_that_it_is_on)
{
    nui::Widget& left = *screen->findByName("left");
    log.listenAndCapture(left);
    subscribe(
        left, nui::touch::Press,
        [](nui::WidgetEvent& event) {
            engine().closeScreen(engine().screens.find(event.target->screen()->windowId()));
        },
        nullptr);
    toolkit.press(10, 10);
    EXPECT_EQ(engine().pointer.pressed(), nullptr);
    EXPECT_EQ(engine().pointer.captured(), nullptr);
    EXPECT_EQ(engine().pointer.hover(), nullptr);
}

TEST_F(pointer_test, a_listener_may_take_its_widget_off_while_the_pointer_leaves_it)
{
    nui::Widget& left = *screen->findByName("left");
    subscribe(
        left, nui::touch::Leave,
        [](nui::WidgetEvent& event) {
            dynamic_cast<nui::Container&>(*event.target->parent).remove(event.target);
        },
        nullptr);
    toolkit.move(10, 10);
    toolkit.move(110, 60);
    EXPECT_EQ(engine().pointer.hover().get(), screen->findByName("below"));
    EXPECT_EQ(screen->findByName("left"), nullptr);
}

TEST_F(pointer_test, a_tool_tip_follows_to_the_window_that_it_is_for)
{
    toolkit.move(10, 60);
    toolkit.turnAfter(1000);
    EXPECT_EQ(engine().toolTips.widget()->screen(), screen.get());
    const auto other = toolkit.open(R"({'widgets': [{'class': 'Screen', 'id': 'screen',
        'windowWidth': 50, 'windowHeight': 50, 'borderless': true, 'children': [
            {'class': 'Widget', 'name': 'spot', 'toolTip': 'about spot'}]}]})");
    toolkit.move(10, 10);
    toolkit.turnAfter(1000);
    EXPECT_EQ(engine().toolTips.widget()->screen(), other.get());
    engine().closeScreen(other);
    EXPECT_EQ(engine().toolTips.widget()->parent, nullptr);
}

TEST_F(pointer_test, a_spy_is_offered_what_hit_testing_passes)
{
    nui::ListenerList spy(nullptr);
    std::string seen;
    spy.subscribe(
        nui::touch::Press,
        [](nui::WidgetEvent& event) {
            *static_cast<std::string*>(event.user) += event.source->name + " ";
        },
        &seen);
    engine().setEventSpy(&spy);
    toolkit.press(10, 10);
    engine().setEventSpy(nullptr);
    EXPECT_EQ(seen, "left ");
}

} // namespace
