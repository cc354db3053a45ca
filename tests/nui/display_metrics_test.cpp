#include "nui/engine/display_metrics.h"

#include "nui/draw/gl_context.h"
#include "support/nui/sdl_log_capture.h"

#include <SDL2/SDL.h>
#include <algorithm>
#include <gtest/gtest.h>

namespace {

using nui::DisplayMetrics;
using nui::test::SdlLogCapture;

TEST(display_metrics_test, an_unknown_scale_is_one_the_first_time_and_then_stays)
{
    nui::closeGl();
    SDL_Quit(); // nothing is told of displays while SDL's video does not run
    DisplayMetrics metrics;
    const SdlLogCapture log;
    EXPECT_FALSE(metrics.read());
    EXPECT_EQ(metrics.displayScale, 1);
    metrics.displayScale = 2.5;
    metrics.setScale(2);
    metrics.width = 640;
    EXPECT_FALSE(metrics.read());
    EXPECT_EQ(metrics.displayScale, 2.5);
    EXPECT_EQ(metrics.textScale, 5);
    EXPECT_EQ(metrics.width, 640);
    EXPECT_EQ(log.text(), "Using default ddpi\nKeeping old ddpi\n");
}

TEST(display_metrics_test, sizes_and_scale_are_those_of_the_first_display)
{
    ASSERT_EQ(SDL_Init(SDL_INIT_VIDEO), 0);
    SDL_Rect bounds = {};
    SDL_Rect usable = {};
    float dpi = 0;
    ASSERT_EQ(SDL_GetDisplayBounds(0, &bounds), 0);
    ASSERT_EQ(SDL_GetDisplayUsableBounds(0, &usable), 0);
    const bool told = SDL_GetDisplayDPI(0, &dpi, nullptr, nullptr) == 0;

    const SdlLogCapture log;
    DisplayMetrics metrics;
    metrics.setScale(3);
    // What the system tells is new the first time only.
    EXPECT_EQ(metrics.read(), told);
    EXPECT_FALSE(metrics.read());
    EXPECT_EQ(metrics.displayScale, told ? dpi / 72 : 1);
    EXPECT_EQ(metrics.textScale, 3 * metrics.displayScale);
    EXPECT_EQ(metrics.width, bounds.w);
    EXPECT_EQ(metrics.height, bounds.h);
    EXPECT_EQ(metrics.smallerSide, std::min(bounds.w, bounds.h));
    EXPECT_EQ(metrics.usableWidth, usable.w);
    EXPECT_EQ(metrics.usableHeight, usable.h);
}

} // namespace
