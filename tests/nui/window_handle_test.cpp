#include "nui/engine/window_handle.h"

#include "nui/draw/drawing.h"
#include "nui/draw/gl_context.h"
#include "nui/draw/texture.h"
#include "support/nui/headless_screen.h"
#include "support/nui/picture_folder.h"
#include "support/nui/pixel_at.h"
#include "support/nui/sdl_log_capture.h"

#include <SDL2/SDL.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace {

using nui::WindowHandle;
using nui::WindowSettings;

WindowSettings hiddenWindow()
{
    WindowSettings settings;
    settings.title = "A title";
    settings.width = 200;
    settings.height = 100;
    settings.flags = SDL_WINDOW_OPENGL | SDL_WINDOW_HIDDEN | SDL_WINDOW_BORDERLESS;
    return settings;
}

class window_handle_test : public testing::Test {
protected:
    window_handle_test()
    {
        SDL_Init(SDL_INIT_VIDEO);
        nui::closeGl();
        nui::setGlAttributes();
        nui::prepareDrawing();
    }
};

TEST_F(window_handle_test, the_first_window_takes_over_the_hidden_ones_context_and_its_textures)
{
    ASSERT_TRUE(nui::openHiddenWindow());
    void* const context = nui::sharedContext();
    const nui::Color blue = 0xFFFF0000;
    nui::TextureRef texture = nui::makeTexture(&blue, 1, 1);

    for (int round = 0; round < 2; ++round) {
        // In the second round no window at all is left in between.
        WindowHandle window;
        ASSERT_TRUE(window.create(hiddenWindow()));
        EXPECT_FALSE(nui::hasHiddenWindow());
        EXPECT_EQ(nui::sharedContext(), context);
        EXPECT_EQ(nui::currentWindow(), &window);
        EXPECT_EQ(SDL_GL_GetCurrentContext(), context);
        nui::setViewport();
        nui::set2DProjection();
        nui::resetFrameState();
        nui::setColor(nui::OpaqueWhite);
        nui::texturedQuad(&texture, 0, 0, 9, 9, nullptr);
        EXPECT_EQ(nui::test::pixelAt(3, 3), "0000ff") << "round " << round;
    }
    EXPECT_EQ(nui::currentWindow(), nullptr);
    WindowHandle window;
    ASSERT_TRUE(window.create(hiddenWindow()));
    nui::freeTexture(texture);
}

TEST_F(window_handle_test, a_window_makes_the_shared_context_if_there_is_none)
{
    WindowHandle first;
    WindowHandle second;
    ASSERT_TRUE(first.create(hiddenWindow()));
    void* const context = nui::sharedContext();
    EXPECT_NE(context, nullptr);
    ASSERT_TRUE(second.create(hiddenWindow()));
    EXPECT_EQ(nui::sharedContext(), context);
    EXPECT_NE(first.id(), second.id());
    nui::makeCurrent(&first);
    EXPECT_EQ(SDL_GL_GetCurrentWindow(), first.sdlWindow());
}

TEST_F(window_handle_test, a_new_window_has_what_was_asked_for)
{
    const nui::test::PictureFolder pictures;
    pictures.write("icon.png", "rg\nbw\n");
    WindowSettings settings = hiddenWindow();
    settings.flags |= SDL_WINDOW_RESIZABLE;
    settings.minWidth = 50; // and no minimum of the height
    settings.iconPath = pictures.path() + "/icon.png";
    WindowHandle window;
    EXPECT_TRUE(window.enabled);
    EXPECT_FALSE(window.mouseInside || window.keyboardFocus);
    ASSERT_TRUE(window.create(settings));

    EXPECT_STREQ(SDL_GetWindowTitle(window.sdlWindow()), "A title");
    EXPECT_EQ(window.id(), SDL_GetWindowID(window.sdlWindow()));
    EXPECT_EQ(window.drawableWidth, 200);
    EXPECT_EQ(window.drawableHeight, 100);
    int minWidth = 0;
    SDL_GetWindowMinimumSize(window.sdlWindow(), &minWidth, nullptr);
    EXPECT_EQ(minWidth, 50);
    EXPECT_GT(window.desktopWidth, 0);
    EXPECT_GT(window.desktopHeight, 0);
    EXPECT_TRUE(window.mouseInside && window.keyboardFocus);
    EXPECT_TRUE(window.hidden);
    EXPECT_FALSE(window.minimized);
}

TEST_F(window_handle_test, the_drawable_size_follows_the_window)
{
    WindowHandle window;
    ASSERT_TRUE(window.create(hiddenWindow()));
    EXPECT_FALSE(window.readDrawableSize());
    window.setSize(240, 120);
    EXPECT_TRUE(window.readDrawableSize());
    EXPECT_EQ(window.drawableWidth, 240);
    EXPECT_EQ(window.drawableHeight, 120);
}

TEST_F(window_handle_test, a_window_that_the_system_refuses_is_logged_and_leaves_the_handle_empty)
{
    const nui::test::SdlLogCapture log;
    WindowSettings settings = hiddenWindow();
    // A window is of one of the two only.
    settings.flags |= SDL_WINDOW_VULKAN;
    WindowHandle window;
    EXPECT_FALSE(window.create(settings));
    EXPECT_FALSE(window.exists());
    EXPECT_EQ(log.text().find("Window error "), 0U) << log.text();
    EXPECT_GT(log.text().size(), std::string("Window error \n").size());
    EXPECT_EQ(nui::currentWindow(), nullptr);
}

TEST_F(window_handle_test, window_events_are_noted)
{
    WindowHandle window;
    const auto note = [&](SDL_WindowEventID event) {
        window.noteEvent(static_cast<std::uint8_t>(event));
        std::string flags;
        flags += window.minimized ? "minimized " : "";
        flags += window.hidden ? "hidden " : "";
        flags += window.mouseInside ? "mouse " : "";
        flags += window.keyboardFocus ? "keyboard " : "";
        return flags;
    };
    EXPECT_EQ(note(SDL_WINDOWEVENT_MINIMIZED), "minimized ");
    EXPECT_EQ(note(SDL_WINDOWEVENT_MOVED), "minimized ");
    EXPECT_EQ(note(SDL_WINDOWEVENT_RESTORED), "");
    EXPECT_EQ(note(SDL_WINDOWEVENT_MINIMIZED), "minimized ");
    EXPECT_EQ(note(SDL_WINDOWEVENT_MAXIMIZED), "");
    EXPECT_EQ(note(SDL_WINDOWEVENT_ENTER), "mouse ");
    EXPECT_EQ(note(SDL_WINDOWEVENT_FOCUS_GAINED), "mouse keyboard ");
    EXPECT_EQ(note(SDL_WINDOWEVENT_LEAVE), "keyboard ");
    EXPECT_EQ(note(SDL_WINDOWEVENT_FOCUS_LOST), "");
    window.hide();
    EXPECT_EQ(note(SDL_WINDOWEVENT_HIDDEN), "hidden ");
    window.noteEvent(SDL_WINDOWEVENT_MINIMIZED);
    EXPECT_EQ(note(SDL_WINDOWEVENT_SHOWN), "hidden ") << "no event takes hidden back";
}

TEST_F(window_handle_test, showing_takes_the_hidden_mark_back)
{
    WindowHandle window;
    ASSERT_TRUE(window.create(hiddenWindow()));
    window.show();
    EXPECT_FALSE(window.hidden);
    EXPECT_EQ(SDL_GetWindowFlags(window.sdlWindow()) & SDL_WINDOW_HIDDEN, 0U);
    window.hide();
    EXPECT_NE(SDL_GetWindowFlags(window.sdlWindow()) & SDL_WINDOW_HIDDEN, 0U);
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
}

} // namespace
