#include "support/nui/running_toolkit.h"

#include "nui/engine/engine.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace nui::test {

RunningToolkit::RunningToolkit()
{
    SDL_Init(SDL_INIT_VIDEO | SDL_INIT_EVENTS);
    Engine::start("");
    engine().setClock(FrameClock::now);
}

RunningToolkit::~RunningToolkit()
{
    target.reset();
    layouts_.clear();
    Engine::close();
    SDL_Quit();
}

std::shared_ptr<Screen> RunningToolkit::open(std::string layoutJson, Widget* parent)
{
    std::replace(layoutJson.begin(), layoutJson.end(), '\'', '"');
    layouts_.push_back(std::make_unique<LayoutText>(layoutJson));
    auto screen = std::dynamic_pointer_cast<Screen>(layouts_.back()->find("screen"));
    if (!screen) {
        ADD_FAILURE() << "no screen in " << layoutJson;
        return nullptr;
    }
    screen->parent = parent;
    screen->openWindow();
    engine().addScreen(screen);
    target = screen;
    frame();
    // What opening a window has put into the queue is not what a test is about.
    turn();
    engine().keyboard.focusScreen = screen;
    engine().screens.makeCurrent(screen);
    return screen;
}

void RunningToolkit::turn()
{
    engine().step();
}

void RunningToolkit::turnAfter(std::uint64_t milliseconds)
{
    clock.advance(milliseconds);
    turn();
}

void RunningToolkit::frame()
{
    clock.advance(100);
    if (engine().step())
        engine().draw(true);
}

void RunningToolkit::move(int x, int y)
{
    x_ = x;
    y_ = y;
    SDL_Event event = {};
    event.motion.type = SDL_MOUSEMOTION;
    event.motion.windowID = target->windowId();
    event.motion.x = x;
    event.motion.y = y;
    SDL_PushEvent(&event);
    turn();
}

void RunningToolkit::pushButton(std::uint32_t type, std::uint8_t number, std::uint8_t clicks)
{
    SDL_Event event = {};
    event.button.type = type;
    event.button.windowID = target->windowId();
    event.button.button = number;
    event.button.clicks = clicks;
    event.button.x = x_;
    event.button.y = y_;
    SDL_PushEvent(&event);
    turn();
}

void RunningToolkit::press(std::uint8_t button)
{
    pushButton(SDL_MOUSEBUTTONDOWN, button, 1);
}

void RunningToolkit::release(std::uint8_t button, std::uint8_t clicks)
{
    pushButton(SDL_MOUSEBUTTONUP, button, clicks);
}

void RunningToolkit::press(int x, int y, std::uint8_t button)
{
    move(x, y);
    press(button);
}

void RunningToolkit::click(int x, int y, std::uint8_t button)
{
    press(x, y, button);
    release(button);
}

void RunningToolkit::wheel(int notches)
{
    SDL_Event event = {};
    event.wheel.type = SDL_MOUSEWHEEL;
    event.wheel.windowID = target->windowId();
    event.wheel.y = notches;
    SDL_PushEvent(&event);
    turn();
}

void RunningToolkit::key(std::int32_t keycode, std::uint16_t modifiers, bool repeat)
{
    SDL_Event event = {};
    event.key.type = SDL_KEYDOWN;
    event.key.windowID = target->windowId();
    event.key.repeat = repeat ? 1 : 0;
    event.key.keysym.sym = keycode;
    event.key.keysym.mod = modifiers;
    SDL_PushEvent(&event);
    turn();
}

void RunningToolkit::keys(std::initializer_list<Key> pressed)
{
    for (const Key& each : pressed)
        key(each.code, each.modifiers);
}

void RunningToolkit::type(const std::string& text)
{
    SDL_Event event = {};
    event.text.type = SDL_TEXTINPUT;
    event.text.windowID = target->windowId();
    text.copy(event.text.text, sizeof event.text.text - 1);
    SDL_PushEvent(&event);
    turn();
}

void RunningToolkit::windowEvent(std::uint8_t subEvent, const Screen& screen)
{
    SDL_Event event = {};
    event.window.type = SDL_WINDOWEVENT;
    event.window.windowID = screen.windowId();
    event.window.event = subEvent;
    SDL_PushEvent(&event);
    turn();
}

} // namespace nui::test
