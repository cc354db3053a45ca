#include "nui/native_window.h"

#include <SDL2/SDL.h>
#include <X11/Xlib.h>
#include <X11/keysym.h>

#include <array>
#include <string_view>

// SDL tells what window systems here have in common. They refuse no clicks, send no numbered
// messages, and have no menus and no message box of their own.

namespace nui {

namespace {

/// A connection of our own, as SDL's belongs to its windows; null with other window systems than X.
Display* display()
{
    const char* const driver = SDL_GetCurrentVideoDriver();
    if (driver == nullptr || std::string_view(driver) != "x11")
        return nullptr;
    static Display* const connection = XOpenDisplay(nullptr);
    return connection;
}

KeySym symbolOf(std::int32_t key)
{
    switch (key) {
    case SDLK_SPACE:
        return XK_space;
    case SDLK_ESCAPE:
        return XK_Escape;
    case SDLK_KP_ENTER:
        return XK_KP_Enter;
    default:
        return XK_Return;
    }
}

} // namespace

WorkArea workArea()
{
    SDL_Rect area = {};
    SDL_GetDisplayUsableBounds(0, &area);
    return {area.w, area.h};
}

std::int32_t frameHeight()
{
    return 0;
}

FrameSizes frameSizes(SDL_Window* window)
{
    FrameSizes sizes;
    SDL_GetWindowBordersSize(window, &sizes.top, &sizes.left, &sizes.bottom, &sizes.right);
    return sizes;
}

Rect clientRect(SDL_Window* window)
{
    Rect rect;
    SDL_GetWindowPosition(window, &rect.x, &rect.y);
    SDL_GetWindowSize(window, &rect.width, &rect.height);
    return rect;
}

Rect outerRect(SDL_Window* window)
{
    const FrameSizes frame = frameSizes(window);
    const Rect client = clientRect(window);
    return {client.x - frame.left, client.y - frame.top, client.width + frame.left + frame.right,
            client.height + frame.top + frame.bottom};
}

void enableNativeWindow(SDL_Window* /*window*/, bool /*enable*/) {}

void setNativeOwner(SDL_Window* window, SDL_Window* owner)
{
    SDL_SetWindowModalFor(window, owner);
}

bool isKeyDown(std::int32_t key)
{
    Display* const connection = display();
    if (connection == nullptr)
        return false;
    std::array<char, 32> down{}; // a bit for each key
    XQueryKeymap(connection, down.data());
    const unsigned code = XKeysymToKeycode(connection, symbolOf(key));
    return (static_cast<unsigned char>(down.at(code / 8)) >> code % 8 & 1U) != 0;
}

void setMinimizeBoxStyle(SDL_Window* /*window*/, std::uint32_t /*style*/) {}

std::optional<int> nativeMessageBox(SDL_Window* /*owner*/, std::uint32_t /*flags*/,
                                    const std::string& /*text*/, const std::string& /*title*/)
{
    return std::nullopt;
}

void setNativeMessageHook(const std::function<void(const NativeMessage&)>& /*hook*/) {}

std::optional<NativeMessage> nativeMessageOf(const SDL_SysWMmsg& /*message*/)
{
    return std::nullopt;
}

void passToSystem(const NativeMessage& /*message*/) {}

bool isNativeWindow(SDL_Window* /*window*/, const void* /*nativeWindow*/)
{
    return false;
}

void attachNativeMenu(SDL_Window* /*window*/, void* /*menu*/,
                      const std::function<void(void* menu)>& /*opening*/)
{
}

} // namespace nui
