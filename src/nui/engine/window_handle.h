#pragma once

#include "nui/draw/drawn_frame.h"

#include <cstdint>
#include <memory>
#include <string>

struct SDL_Window;

namespace nui {

/// What a window is made with; sizes are pixels.
struct WindowSettings {
    std::string title; ///< UTF-8
    std::int32_t width = 1;
    std::int32_t height = 1;
    std::uint32_t flags = 0; ///< SDL_WindowFlags
    std::string iconPath;    ///< empty for none
    std::int32_t minWidth = 0;
    std::int32_t minHeight = 0;
};

/// One SDL window, owned by its Screen. All windows draw with the shared GL context.
class WindowHandle {
public:
    WindowHandle() = default;
    WindowHandle(const WindowHandle&) = delete;
    WindowHandle& operator=(const WindowHandle&) = delete;
    ~WindowHandle() { destroy(); }

    /// Opens the window and makes it the one that GL draws into. A failure is logged and leaves
    /// the handle without a window.
    bool create(const WindowSettings& settings);
    [[nodiscard]] bool exists() const { return window_ != nullptr; }
    [[nodiscard]] SDL_Window* sdlWindow() const { return window_.get(); }
    [[nodiscard]] std::uint32_t id() const { return id_; }

    void show();
    void hide();
    void raise();
    void setTitle(const std::string& title);
    [[nodiscard]] bool isMaximized() const;
    void setSize(std::int32_t width, std::int32_t height);
    void center();
    /// Asks for the drawable size again; answers whether it changed.
    bool readDrawableSize();
    /// Blocks the user's input; of the native window as well where the system can.
    void setEnabled(bool enable);
    /// Notes what a window event of SDL's says; the hidden flag is never cleared by one.
    void noteEvent(std::uint8_t windowEvent);

    std::int32_t drawableWidth = 0;
    std::int32_t drawableHeight = 0;
    std::int32_t desktopWidth = 0; ///< of the desktop's display mode
    std::int32_t desktopHeight = 0;
    bool mouseInside = false;
    bool keyboardFocus = false;
    bool minimized = false;
    bool hidden = false;
    bool enabled = true;
    DrawnFrame frame;

private:
    struct DestroyWindow {
        void operator()(SDL_Window* window) const;
    };

    void destroy();
    void setIcon(const std::string& path);
    void readDesktopSize();

    std::unique_ptr<SDL_Window, DestroyWindow> window_;
    std::uint32_t id_ = 0;
    bool askedToHide_ = false; ///< by the program, where the system may hide a window too
};

} // namespace nui
