#include "nui/draw/gl_context.h"

#include "nui/draw/drawn_frame.h"
#include "nui/draw/texture.h"
#include "nui/engine/window_handle.h"

#include <GL/glew.h>
#include <SDL2/SDL_log.h>
#include <SDL2/SDL_video.h>

namespace nui {

namespace {

struct GlState {
    SDL_Window* hiddenWindow = nullptr;
    SDL_GLContext sharedContext = nullptr;
    WindowHandle* currentWindow = nullptr;
};

GlState& state()
{
    static GlState instance;
    return instance;
}

/// Also makes the context current for the window.
void createSharedContext(SDL_Window* window)
{
    state().sharedContext = SDL_GL_CreateContext(window);
    if (state().sharedContext == nullptr) {
        SDL_Log("Unable to create a GL context: %s", SDL_GetError());
        return;
    }
    // Some systems end all contexts with the last window, unless the library is held as well.
    SDL_GL_LoadLibrary(nullptr);
    // Belongs to the context, so it cannot be asked for along with the attributes.
    SDL_GL_SetSwapInterval(1);
}

} // namespace

void setGlAttributes()
{
    constexpr struct {
        SDL_GLattr attribute;
        int value;
    } Attributes[] = {{SDL_GL_MULTISAMPLEBUFFERS, 1},    {SDL_GL_MULTISAMPLESAMPLES, 4},
                      {SDL_GL_BUFFER_SIZE, 32},          {SDL_GL_DEPTH_SIZE, 24},
                      {SDL_GL_CONTEXT_MAJOR_VERSION, 1}, {SDL_GL_CONTEXT_MINOR_VERSION, 0},
                      {SDL_GL_DOUBLEBUFFER, 1}};
    for (const auto& [attribute, value] : Attributes)
        SDL_GL_SetAttribute(attribute, value);
}

bool openHiddenWindow()
{
    closeGl();
    SDL_Window* const window =
        SDL_CreateWindow("", SDL_WINDOWPOS_UNDEFINED, SDL_WINDOWPOS_UNDEFINED, 1, 1,
                         SDL_WINDOW_OPENGL | SDL_WINDOW_HIDDEN);
    state().hiddenWindow = window;
    if (window == nullptr) {
        SDL_Log("Unable to create the hidden window: %s", SDL_GetError());
        return false;
    }
    createSharedContext(window);
    return state().sharedContext != nullptr;
}

void closeHiddenWindow()
{
    if (state().hiddenWindow == nullptr)
        return;
    SDL_DestroyWindow(state().hiddenWindow);
    state().hiddenWindow = nullptr;
}

bool hasHiddenWindow()
{
    return state().hiddenWindow != nullptr;
}

void* sharedContext()
{
    return state().sharedContext;
}

void* requireSharedContext(WindowHandle& window)
{
    if (state().sharedContext == nullptr)
        createSharedContext(window.sdlWindow());
    return state().sharedContext;
}

void makeCurrent(WindowHandle* window)
{
    drawGathered(); // into the window that it is for
    state().currentWindow = window;
    if (window != nullptr)
        SDL_GL_MakeCurrent(window->sdlWindow(), state().sharedContext);
    else
        SDL_GL_MakeCurrent(nullptr, nullptr);
}

WindowHandle* currentWindow()
{
    return state().currentWindow;
}

void forgetWindow(const WindowHandle& window)
{
    if (state().currentWindow == &window)
        state().currentWindow = nullptr;
}

void set2DProjection()
{
    if (state().currentWindow == nullptr)
        return;
    const WindowHandle& window = *state().currentWindow;
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(0, window.drawableWidth, window.drawableHeight, 0, -1, 1);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
}

void setViewport()
{
    if (state().currentWindow == nullptr)
        return;
    const WindowHandle& window = *state().currentWindow;
    glViewport(0, 0, window.drawableWidth, window.drawableHeight);
}

void resetFrameState()
{
    constexpr GLenum Capabilities[] = {GL_CULL_FACE, GL_DEPTH_TEST, GL_TEXTURE_2D};
    for (const GLenum capability : Capabilities)
        glDisable(capability);
    setScissor({0, 0, NoClip, 0});
}

void swap()
{
    if (state().currentWindow != nullptr)
        SDL_GL_SwapWindow(state().currentWindow->sdlWindow());
}

void closeGl()
{
    closeHiddenWindow();
    if (state().sharedContext != nullptr) {
        SDL_GL_DeleteContext(state().sharedContext);
        SDL_GL_UnloadLibrary();
    }
    forgetFreedTextures();
    state() = {};
}

} // namespace nui
