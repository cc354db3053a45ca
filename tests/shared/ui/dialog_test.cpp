#include "shared/ui/dialog.h"

#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "shared/ui/bindable_classes.h"
#include "support/nui/control_test.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>

namespace {

using nrd::shared::ui::dialog;
using nrd::shared::ui::show;
using nrd::shared::ui::show_modal;
using nui::engine;

/// A main window, and a dialog over it whose user acts 50 ms after it was opened.
class dialog_test : public nui::test::ControlTest {
protected:
    dialog_test() { nrd::shared::ui::registerBindableClasses(); }

    static std::string button(const std::string& name)
    {
        return "{'class': 'TextButton', 'name': '" + name + "', 'text': 'x', 'height': 20},";
    }

    void openWith(std::string buttons)
    {
        if (!buttons.empty())
            buttons.pop_back();
        layout_ = "{'widgets': [{'class': 'dialog', 'id': 'asked', 'form': true, 'windowWidth': "
                  "100, 'windowHeight': 60, 'children': [" +
                  buttons + "]}]}";
        std::replace(layout_.begin(), layout_.end(), '\'', '"');
        loaded_ = std::make_unique<nui::test::LayoutText>(layout_);
        asked = std::dynamic_pointer_cast<dialog>(loaded_->find("asked"));
        open("{'class': 'Widget', 'name': 'content'}");
        engine().setClock([] { return std::uint64_t(SDL_GetTicks64()); });
    }

    /// Waits for the dialog's answer; `act` is done while it waits.
    int answer(std::function<void()> act)
    {
        act_ = std::move(act);
        nui::subscribe(*screen, nui::TimerDue, onTimer, this);
        engine().addTimer(50, screen, false);
        const int result = show_modal(asked);
        nui::unsubscribe(*screen, nui::TimerDue, onTimer);
        return result;
    }

    void clickOn(const std::string& name)
    {
        const nui::Widget& widget = *asked->findByName(name);
        toolkit.target = asked;
        moveTo(widget);
        toolkit.press();
        toolkit.release();
    }

    std::shared_ptr<dialog> asked;

private:
    static void onTimer(nui::WidgetEvent& event)
    {
        auto& test = *static_cast<dialog_test*>(event.user);
        test.toolkit.target = test.asked;
        engine().keyboard.focusScreen = test.asked; // as a window manager does
        engine().draw(true);
        test.act_();
        if (test.asked->result == 0 && !engine().hasQuit())
            test.asked->closeWindow(); // else the wait would not end
    }

    std::string layout_;
    std::unique_ptr<nui::test::LayoutText> loaded_;
    std::function<void()> act_;
};

TEST_F(dialog_test, is_modal_over_the_main_window_until_it_is_answered)
{
    openWith(button("ok_button") + button("cancel_button"));
    std::string told;
    asked->on_ok = [&] { told += asked->isOpen() ? "open" : "closed"; };
    bool blocked = false;
    EXPECT_EQ(answer([&] {
                  blocked = !screen->window->enabled;
                  clickOn("ok_button");
              }),
              dialog::ok);
    EXPECT_TRUE(blocked);
    EXPECT_EQ(told, "open");
    EXPECT_FALSE(asked->isOpen());
    EXPECT_TRUE(screen->window->enabled);
    // An answer stays.
    EXPECT_EQ(show_modal(asked), dialog::ok);
    EXPECT_TRUE(asked->isOpen());
}

TEST_F(dialog_test, is_cancelled_by_its_button_and_by_escape)
{
    openWith(button("ok_button") + button("cancel_button"));
    EXPECT_EQ(answer([&] { clickOn("cancel_button"); }), dialog::cancel);
    asked->result = 0;
    EXPECT_EQ(answer([&] { toolkit.key(SDLK_ESCAPE); }), dialog::cancel);
    asked->result = 0;
    // Return answers from the start; what is held since before the dialog does not.
    EXPECT_EQ(answer([&] {
                  toolkit.key(SDLK_ESCAPE, 0, true);
                  toolkit.key(SDLK_RETURN);
              }),
              dialog::ok);
}

TEST_F(dialog_test, without_a_cancel_button_knows_no_escape)
{
    openWith(button("ok_button"));
    EXPECT_EQ(answer([&] {
                  toolkit.key(SDLK_ESCAPE);
                  EXPECT_TRUE(asked->isOpen());
                  clickOn("ok_button");
              }),
              dialog::ok);
}

TEST_F(dialog_test, that_is_closed_otherwise_has_no_answer)
{
    openWith(button("ok_button") + button("cancel_button"));
    EXPECT_EQ(answer([&] { toolkit.windowEvent(SDL_WINDOWEVENT_CLOSE, *asked); }), 0);
    EXPECT_FALSE(asked->isOpen());
    EXPECT_EQ(answer([&] { engine().quit(); }), 0);
    EXPECT_TRUE(asked->isOpen());
}

TEST_F(dialog_test, that_is_only_shown_closes_by_its_buttons)
{
    openWith("");
    show(asked); // without any button there is nothing to answer
    EXPECT_TRUE(asked->isOpen());
    asked->on_cancel();
    EXPECT_EQ(asked->result, dialog::cancel);
    EXPECT_FALSE(asked->isOpen());
}

TEST_F(dialog_test, before_there_is_a_main_window_stands_alone)
{
    openWith(button("ok_button"));
    engine().closeScreen(screen);
    show(asked);
    EXPECT_EQ(asked->parent, nullptr);
    engine().draw(true);
    EXPECT_FALSE(engine().hasQuit());
    EXPECT_TRUE(asked->isOpen());
}

} // namespace
