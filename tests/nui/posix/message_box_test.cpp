#include "nui/engine/engine.h"
#include "support/nui/sdl_log_capture.h"

#include <SDL2/SDL.h>
#include <cstdlib>
#include <gtest/gtest.h>

namespace {

TEST(message_box_test, a_box_that_cannot_be_shown_is_logged_and_answered_like_escape)
{
    SDL_SetHint(SDL_HINT_VIDEODRIVER, "offscreen");
    ASSERT_EQ(SDL_Init(SDL_INIT_VIDEO), 0);
    const char* const display = std::getenv("DISPLAY");
    const std::string before = display == nullptr ? "" : display;
    unsetenv("DISPLAY"); // else SDL would ask someone at a screen
    nui::Engine& engine = nui::Engine::create();
    const struct {
        std::uint32_t flags;
        int answer;
    } cases[] = {{0x10, 0}, {0x21, 1}, {0x32, 3}, {0x03, 1}};
    for (const auto& [flags, answer] : cases) {
        const nui::test::SdlLogCapture log;
        EXPECT_EQ(engine.messageBox(flags, "A text", "A title"), answer) << flags;
        EXPECT_EQ(log.text(), "error displaying message box\n");
    }
    nui::Engine::close();
    if (!before.empty()) {
        setenv("DISPLAY", before.c_str(), 1);
    }
}

} // namespace
