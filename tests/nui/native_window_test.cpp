#include "nui/native_window.h"

#include <SDL2/SDL.h>
#include <gtest/gtest.h>

namespace {

class native_window_test : public testing::Test {
protected:
    native_window_test()
    {
        SDL_Init(SDL_INIT_VIDEO);
        window = SDL_CreateWindow("A window", 60, 70, 300, 200, SDL_WINDOW_HIDDEN);
    }

    ~native_window_test() override { SDL_DestroyWindow(window); }

    SDL_Window* window = nullptr;
};

TEST_F(native_window_test, the_outer_rectangle_is_the_client_area_and_its_frame)
{
    const nui::FrameSizes frame = nui::frameSizes(window);
    const nui::Rect client = nui::clientRect(window);
    const nui::Rect outer = nui::outerRect(window);
    EXPECT_EQ(client.width, 300);
    EXPECT_EQ(client.height, 200);
    EXPECT_EQ(client.x - frame.left, outer.x);
    EXPECT_EQ(client.y - frame.top, outer.y);
    EXPECT_EQ(client.width + frame.left + frame.right, outer.width);
    EXPECT_EQ(client.height + frame.top + frame.bottom, outer.height);
}

TEST_F(native_window_test, rectangles_are_in_screen_pixels_and_follow_the_window)
{
    SDL_SetWindowPosition(window, 90, 110);
    SDL_SetWindowSize(window, 320, 240);
    const nui::Rect expected = {90, 110, 320, 240};
    EXPECT_EQ(nui::clientRect(window), expected);
}

TEST_F(native_window_test, the_work_area_is_what_the_display_leaves_free)
{
    SDL_Rect usable = {};
    ASSERT_EQ(SDL_GetDisplayUsableBounds(0, &usable), 0);
    EXPECT_EQ(nui::workArea().width, usable.w);
    EXPECT_EQ(nui::workArea().height, usable.h);
    EXPECT_GE(nui::frameHeight(), 0);
}

TEST_F(native_window_test, a_window_is_not_one_that_the_system_does_not_know)
{
    const int other = 0;
    EXPECT_FALSE(nui::isNativeWindow(window, nullptr));
    EXPECT_FALSE(nui::isNativeWindow(window, &other));
}

} // namespace
