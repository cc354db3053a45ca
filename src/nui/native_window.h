#pragma once

#include "nui/draw/geometry.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

struct SDL_SysWMmsg;
struct SDL_Window;

// What SDL does not offer of the system's windows.

namespace nui {

struct WorkArea {
    std::int32_t width = 0;
    std::int32_t height = 0;
};

/// The part of the main display that task bars leave free.
[[nodiscard]] WorkArea workArea();
/// What a window's frame takes of the work area's height: border, caption, padding and title bar
/// button, in pixels. 0 where the system does not tell before the window is there.
[[nodiscard]] std::int32_t frameHeight();

/// Room of the frame around a client area. 0 where it is not known.
struct FrameSizes {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;
};

[[nodiscard]] FrameSizes frameSizes(SDL_Window* window);
/// In screen pixels.
[[nodiscard]] Rect clientRect(SDL_Window* window);
[[nodiscard]] Rect outerRect(SDL_Window* window);

/// Lets the system refuse clicks and keys of a window. Nothing where it has no such notion.
void enableNativeWindow(SDL_Window* window, bool enable);
/// Keeps the window in front of its owner, and minimises it along. Null lets it go, which must come
/// before the owner is destroyed: some systems destroy its windows along.
void setNativeOwner(SDL_Window* window, SDL_Window* owner);
/// Replaces the minimise box bit (0x20000) of the window's style by `style`.
void setMinimizeBoxStyle(SDL_Window* window, std::uint32_t style);

/// Buttons and answers of Engine::messageBox. No value: the system has no box of its own, or it
/// failed.
[[nodiscard]] std::optional<int> nativeMessageBox(SDL_Window* owner, std::uint32_t flags,
                                                  const std::string& text,
                                                  const std::string& title);

/// Whether a key is down on the keyboard itself, whichever window had it: SDL forgets what was
/// down when a window closes. `key` is an SDL_Keycode: return, enter, space or escape. False where
/// the system does not tell.
[[nodiscard]] bool isKeyDown(std::int32_t key);

/// A message of the window system, with Windows' numbers.
struct NativeMessage {
    void* window = nullptr;
    std::uint32_t message = 0;
    std::uintptr_t wParam = 0;
    std::intptr_t lParam = 0;
};

namespace native_message {
constexpr std::uint32_t InputLanguageChange = 0x51;
constexpr std::uint32_t NonClientLeftDown = 0xA1;
constexpr std::uint32_t SystemKeyDown = 0x104;
constexpr std::uint32_t SystemKeyUp = 0x105;
constexpr std::uint32_t Command = 0x111;
constexpr std::uint32_t SystemCommand = 0x112;
constexpr std::uintptr_t SystemCommandMask = 0xFFF0;
constexpr std::uintptr_t KeyMenu = 0xF100; ///< a system command: the menu by keyboard
} // namespace native_message

/// Calls `hook` for each native message before SDL sees it, on the thread that pumps events. The
/// last one given stays. Never called where the system sends no such messages.
void setNativeMessageHook(const std::function<void(const NativeMessage&)>& hook);
/// The message inside an SDL_SYSWMEVENT, if it has Windows' numbers.
[[nodiscard]] std::optional<NativeMessage> nativeMessageOf(const SDL_SysWMmsg& message);
/// Hands the message to the system's own procedure.
void passToSystem(const NativeMessage& message);
[[nodiscard]] bool isNativeWindow(SDL_Window* window, const void* nativeWindow);

/// Attaches a native menu to the window, and calls `opening` with the handle of each menu that
/// is about to open. Null detaches.
void attachNativeMenu(SDL_Window* window, void* menu,
                      const std::function<void(void* menu)>& opening);

} // namespace nui
