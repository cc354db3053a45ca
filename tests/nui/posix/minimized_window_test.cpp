#include "nui/draw/drawing.h"
#include "nui/draw/gl_context.h"
#include "nui/engine/window_handle.h"

#include <SDL.h>
#include <gtest/gtest.h>

namespace {

// X unmaps a window that is minimised, and SDL tells of that as of hiding.
TEST(minimized_window_test, is_not_taken_for_one_that_the_program_has_hidden)
{
    SDL_Init(SDL_INIT_VIDEO);
    nui::closeGl();
    nui::setGlAttributes();
    nui::prepareDrawing();
    {
        nui::WindowHandle window;
        nui::WindowSettings settings;
        settings.flags = SDL_WINDOW_OPENGL;
        ASSERT_TRUE(window.create(settings));
        window.noteEvent(SDL_WINDOWEVENT_HIDDEN);
        window.noteEvent(SDL_WINDOWEVENT_MINIMIZED);
        EXPECT_TRUE(window.minimized);
        window.noteEvent(SDL_WINDOWEVENT_SHOWN);
        window.noteEvent(SDL_WINDOWEVENT_RESTORED);
        EXPECT_FALSE(window.minimized);
        EXPECT_FALSE(window.hidden);
    }
    nui::closeGl();
    SDL_Quit();
}

} // namespace
