#include "support/nui/headless_screen.h"

#include "nui/draw/drawing.h"
#include "nui/draw/gl_context.h"

#include <GL/glew.h>
#include <SDL2/SDL.h>
#include <gtest/gtest.h>

namespace nui::test {

HeadlessScreen::HeadlessScreen(int width, int height)
{
    SDL_Init(SDL_INIT_VIDEO);
    setGlAttributes();
    prepareDrawing();
    WindowSettings settings;
    settings.width = width;
    settings.height = height;
    // A frame would have the system widen a small window.
    settings.flags = SDL_WINDOW_OPENGL | SDL_WINDOW_HIDDEN | SDL_WINDOW_BORDERLESS;
    if (window.create(settings))
        clear();
    else
        ADD_FAILURE() << "no GL window: " << SDL_GetError();
}

void HeadlessScreen::clear()
{
    makeCurrent(&window);
    setViewport();
    set2DProjection();
    resetFrameState();
    setClip({0, 0, NoClip, 0});
    glDisable(GL_BLEND);
    glClearColor(0, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

} // namespace nui::test
