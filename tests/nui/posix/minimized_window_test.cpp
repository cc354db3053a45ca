#include "support/nui/headless_screen.h"

#include <SDL.h>
#include <gtest/gtest.h>

namespace {

// X unmaps a window that is minimised, and SDL tells of that as of hiding.
TEST(minimized_window_test, is_not_taken_for_one_that_the_program_has_hidden)
{
    nui::test::HeadlessScreen screen;
    nui::WindowHandle& window = screen.window;
    window.show();
    // A window whose owner is minimised hears of no more than this.
    window.noteEvent(SDL_WINDOWEVENT_HIDDEN);
    EXPECT_TRUE(window.minimized);
    window.noteEvent(SDL_WINDOWEVENT_MINIMIZED);
    EXPECT_TRUE(window.minimized);
    window.noteEvent(SDL_WINDOWEVENT_SHOWN);
    EXPECT_FALSE(window.minimized);
    EXPECT_FALSE(window.hidden);
}

} // namespace
