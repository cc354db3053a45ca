#include "tools/nui_preview/virtual_input.h"

#include <SDL2/SDL.h>

#include <cstdlib>

namespace nrd::tools::preview {

namespace {

/// Marks our own pointer in the events.
constexpr Uint32 own_pointer = 0x50525657;
// SDL's, where the system has no setting.
constexpr double double_click_seconds = 0.5;
constexpr int double_click_radius = 32;

int SDLCALL only_own_pointer(void* /*user*/, SDL_Event* event)
{
    switch (event->type) {
    case SDL_MOUSEMOTION:
        return event->motion.which == own_pointer ? 1 : 0;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
        return event->button.which == own_pointer ? 1 : 0;
    case SDL_MOUSEWHEEL:
        return event->wheel.which == own_pointer ? 1 : 0;
    default:
        return 1;
    }
}

} // namespace

virtual_input::virtual_input()
{
    SDL_SetEventFilter(only_own_pointer, nullptr);
}

virtual_input::~virtual_input()
{
    SDL_SetEventFilter(nullptr, nullptr);
}

void virtual_input::move(int x, int y)
{
    SDL_Event event = {};
    event.motion.type = SDL_MOUSEMOTION;
    event.motion.timestamp = SDL_GetTicks();
    event.motion.windowID = window_id_;
    event.motion.which = own_pointer;
    event.motion.state = held_;
    event.motion.x = x;
    event.motion.y = y;
    event.motion.xrel = x - x_;
    event.motion.yrel = y - y_;
    x_ = x;
    y_ = y;
    SDL_PushEvent(&event);
}

void virtual_input::press(std::uint8_t button)
{
    count_click(button);
    held_ |= SDL_BUTTON(button);
    push_button(button, true);
}

void virtual_input::release(std::uint8_t button)
{
    held_ &= ~SDL_BUTTON(button);
    push_button(button, false);
}

void virtual_input::count_click(std::uint8_t button)
{
    const bool again = button == clicked_button_ && since_press_ < double_click_seconds &&
                       std::abs(x_ - click_x_) <= double_click_radius &&
                       std::abs(y_ - click_y_) <= double_click_radius;
    clicks_ = again ? static_cast<std::uint8_t>(clicks_ + 1) : std::uint8_t{1};
    clicked_button_ = button;
    click_x_ = x_;
    click_y_ = y_;
    since_press_ = 0;
}

void virtual_input::push_button(std::uint8_t button, bool down)
{
    SDL_Event event = {};
    event.button.type = down ? SDL_MOUSEBUTTONDOWN : SDL_MOUSEBUTTONUP;
    event.button.timestamp = SDL_GetTicks();
    event.button.windowID = window_id_;
    event.button.which = own_pointer;
    event.button.button = button;
    event.button.state = down ? SDL_PRESSED : SDL_RELEASED;
    event.button.clicks = clicks_;
    event.button.x = x_;
    event.button.y = y_;
    SDL_PushEvent(&event);
}

void virtual_input::wheel(int notches)
{
    SDL_Event event = {};
    event.wheel.type = SDL_MOUSEWHEEL;
    event.wheel.timestamp = SDL_GetTicks();
    event.wheel.windowID = window_id_;
    event.wheel.which = own_pointer;
    event.wheel.y = notches;
    event.wheel.preciseY = static_cast<float>(notches);
    event.wheel.direction = SDL_MOUSEWHEEL_NORMAL;
    event.wheel.mouseX = x_;
    event.wheel.mouseY = y_;
    SDL_PushEvent(&event);
}

void virtual_input::key(bool down, std::int32_t key, std::uint16_t modifiers)
{
    SDL_Event event = {};
    event.key.type = down ? SDL_KEYDOWN : SDL_KEYUP;
    event.key.timestamp = SDL_GetTicks();
    event.key.windowID = window_id_;
    event.key.state = down ? SDL_PRESSED : SDL_RELEASED;
    event.key.keysym.scancode = SDL_GetScancodeFromKey(key);
    event.key.keysym.sym = key;
    event.key.keysym.mod = modifiers;
    SDL_SetModState(static_cast<SDL_Keymod>(down ? modifiers : 0));
    SDL_PushEvent(&event);
}

void virtual_input::text(const std::string& text)
{
    SDL_Event event = {};
    event.text.type = SDL_TEXTINPUT;
    event.text.timestamp = SDL_GetTicks();
    event.text.windowID = window_id_;
    SDL_utf8strlcpy(event.text.text, text.c_str(), sizeof event.text.text);
    SDL_PushEvent(&event);
}

} // namespace nrd::tools::preview
