#include "nui/engine/window_handle.h"

#include "nui/draw/gl_context.h"
#include "nui/draw/surface.h"
#include "nui/native_window.h"

#include <GL/glew.h>
#include <SDL2/SDL.h>
#include <algorithm>

namespace nui {

namespace {

void startGlew()
{
    // Its answer does not matter: it fails where it finds no GLX, and what the drawing needs is
    // in every library since GL 1.1.
    glewExperimental = GL_TRUE;
    glewInit();
}

void prepareContext()
{
    glLoadIdentity();
    glDepthFunc(GL_LEQUAL);
    glShadeModel(GL_SMOOTH);
    glHint(GL_PERSPECTIVE_CORRECTION_HINT, GL_NICEST);
}

} // namespace

void WindowHandle::DestroyWindow::operator()(SDL_Window* window) const
{
    SDL_DestroyWindow(window);
}

bool WindowHandle::create(const WindowSettings& settings)
{
    if (SDL_Init(SDL_INIT_VIDEO) != 0) {
        SDL_Log("Unable to initialize SDL");
        return false;
    }
    closeHiddenWindow();
    window_.reset(SDL_CreateWindow(settings.title.c_str(), SDL_WINDOWPOS_UNDEFINED,
                                   SDL_WINDOWPOS_UNDEFINED, settings.width, settings.height,
                                   settings.flags));
    minimized = (settings.flags & SDL_WINDOW_MINIMIZED) != 0;
    hidden = (settings.flags & SDL_WINDOW_HIDDEN) != 0;
    if (!window_) {
        // These words are what support looks for; a number never stood there.
        SDL_Log("%s: %s", "Window error %d", SDL_GetError());
        // Windows that are open already may still want it.
        startGlew();
        return false;
    }
    // SDL refuses a minimum of 0, and then of the other side as well.
    SDL_SetWindowMinimumSize(sdlWindow(), std::max(settings.minWidth, 1),
                             std::max(settings.minHeight, 1));
    id_ = SDL_GetWindowID(sdlWindow());
    mouseInside = true;
    keyboardFocus = true;
    readDrawableSize();
    readDesktopSize();
    if (requireSharedContext(*this) == nullptr) {
        destroy();
        return false;
    }
    makeCurrent(this);
    prepareContext();
    setIcon(settings.iconPath);
    startGlew();
    glHint(GL_GENERATE_MIPMAP_HINT, GL_NICEST);
    return true;
}

void WindowHandle::destroy()
{
    forgetWindow(*this);
    window_.reset();
    id_ = 0;
}

void WindowHandle::setIcon(const std::string& path)
{
    if (path.empty())
        return;
    if (const SurfacePtr icon = loadSurface(path))
        SDL_SetWindowIcon(sdlWindow(), icon.get());
}

void WindowHandle::readDesktopSize()
{
    SDL_DisplayMode mode{};
    if (SDL_GetDesktopDisplayMode(0, &mode) != 0)
        return;
    desktopWidth = mode.w;
    desktopHeight = mode.h;
}

void WindowHandle::show()
{
    // The events of the window system only ever set the flag.
    hidden = false;
    askedToHide_ = false;
    SDL_ShowWindow(sdlWindow());
}

void WindowHandle::hide()
{
    askedToHide_ = true;
    SDL_HideWindow(sdlWindow());
}

void WindowHandle::raise()
{
    SDL_RaiseWindow(sdlWindow());
}

void WindowHandle::setTitle(const std::string& title)
{
    SDL_SetWindowTitle(sdlWindow(), title.c_str());
}

bool WindowHandle::isMaximized() const
{
    return (SDL_GetWindowFlags(sdlWindow()) & SDL_WINDOW_MAXIMIZED) != 0;
}

void WindowHandle::setSize(std::int32_t width, std::int32_t height)
{
    SDL_SetWindowSize(sdlWindow(), width, height);
}

void WindowHandle::center()
{
    SDL_SetWindowPosition(sdlWindow(), SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED);
}

bool WindowHandle::readDrawableSize()
{
    int width = 0;
    int height = 0;
    SDL_GL_GetDrawableSize(sdlWindow(), &width, &height);
    const bool changed = width != drawableWidth || height != drawableHeight;
    drawableWidth = width;
    drawableHeight = height;
    return changed;
}

void WindowHandle::setEnabled(bool enable)
{
    enabled = enable;
    if (window_)
        enableNativeWindow(sdlWindow(), enable);
}

void WindowHandle::noteEvent(std::uint8_t windowEvent)
{
    switch (windowEvent) {
    case SDL_WINDOWEVENT_HIDDEN:
        // Window systems also hide what is minimised, or whose owner is, and show it again. Only
        // show() takes `hidden` back, so that is left to what hide() has asked for.
        (askedToHide_ ? hidden : minimized) = true;
        break;
    case SDL_WINDOWEVENT_MINIMIZED:
        minimized = true;
        break;
    case SDL_WINDOWEVENT_SHOWN:
    case SDL_WINDOWEVENT_MAXIMIZED:
    case SDL_WINDOWEVENT_RESTORED:
        minimized = false;
        break;
    case SDL_WINDOWEVENT_ENTER:
    case SDL_WINDOWEVENT_LEAVE:
        mouseInside = windowEvent == SDL_WINDOWEVENT_ENTER;
        break;
    case SDL_WINDOWEVENT_FOCUS_GAINED:
    case SDL_WINDOWEVENT_FOCUS_LOST:
        keyboardFocus = windowEvent == SDL_WINDOWEVENT_FOCUS_GAINED;
        break;
    default:
        break;
    }
}

} // namespace nui
