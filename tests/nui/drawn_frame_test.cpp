#include "nui/draw/drawn_frame.h"

#include "nui/draw/drawing_3d.h"
#include "nui/draw/gl_context.h"
#include "nui/draw/texture.h"
#include "nui/engine/engine.h"
#include "support/nui/headless_screen.h"
#include "support/nui/pixel_at.h"
#include "support/nui/running_toolkit.h"

#include <SDL2/SDL.h>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace {

using nui::test::pixelAt;
using nui::test::pixelRows;

constexpr nui::Color Red = 0xFF0000FF;
constexpr nui::Color Blue = 0xFFFF0000;
constexpr nui::Rect Unclipped{0, 0, nui::NoClip, 0};

class drawn_frame_test : public testing::Test {
protected:
    drawn_frame_test() { nui::setColor(Red); }

    /// Whether a frame with this in it is drawn.
    bool isDrawn(const std::function<void()>& content)
    {
        const std::uint64_t before = nui::drawnPrimitives();
        frame().begin(width, 30);
        content();
        const bool drawn = frame().show(now);
        EXPECT_EQ(drawn, nui::drawnPrimitives() != before);
        return drawn;
    }
    nui::DrawnFrame& frame() { return screen.window.frame; }

    nui::test::HeadlessScreen screen;
    int width = 40;
    std::uint64_t now = 5000;
};

TEST_F(drawn_frame_test, is_drawn_only_if_it_differs_from_what_the_window_shows)
{
    const auto square = [] { nui::fillRect(1, 1, 2, 2); };
    EXPECT_TRUE(isDrawn(square));
    EXPECT_FALSE(isDrawn(square));
    const auto differs = [&](const char* how, const std::function<void()>& content) {
        EXPECT_TRUE(isDrawn(content)) << how;
        EXPECT_FALSE(isDrawn(content)) << how << ", once more";
        EXPECT_TRUE(isDrawn(square)) << how << ", and back";
    };
    differs("place", [] { nui::fillRect(1, 1, 2, 3); });
    differs("kind", [] { nui::rectOutline(1, 1, 2, 2); });
    differs("one more", [&] {
        square();
        square();
    });
    differs("colour", [&] {
        nui::setColor(Blue);
        square();
        nui::setColor(Red);
    });
    differs("width of lines", [&] {
        nui::setLineWidth(3);
        square();
        nui::setLineWidth(0.8F);
    });
    differs("clip", [&] {
        nui::setClip({0, 0, 2, 2});
        square();
        nui::setClip(Unclipped);
    });
    nui::blend();
    EXPECT_TRUE(isDrawn(square)) << "blending";
    differs("picture", [] {
        const nui::TextureRef picture{1, 1, 1};
        nui::texturedQuad(&picture, 1, 1, 2, 2, nullptr);
    });
    width = 41;
    EXPECT_TRUE(isDrawn(square)) << "size";
}

TEST_F(drawn_frame_test, is_drawn_though_it_is_the_same_if_the_pixels_may_be_others)
{
    const auto square = [] { nui::fillRect(1, 1, 2, 2); };
    isDrawn(square);
    frame().invalidate();
    EXPECT_TRUE(isDrawn(square));
    now += 999;
    EXPECT_FALSE(isDrawn(square));
    now += 1;
    EXPECT_TRUE(isDrawn(square)) << "a second later";
    // GL gives the name of a texture that is gone to the next one.
    nui::TextureRef picture = nui::makeTexture(&Red, 1, 1);
    EXPECT_TRUE(isDrawn(square));
    nui::freeTexture(picture);
    frame().begin(width, 30);
    square();
    frame().drawOnly();
    EXPECT_FALSE(isDrawn(square)) << "the window has shown it before the back buffer had it";
}

/// All that primitives depend on, in one picture.
void drawEverything()
{
    nui::fillRect(0, 0, 4, 4);
    nui::TextureRef picture = nui::makeTexture(&Blue, 1, 1);
    nui::setClip({1, 1, 9, 2});
    nui::setColor(nui::OpaqueWhite);
    nui::texturedQuad(&picture, 0, 0, 2, 6, nullptr);
    nui::freeTexture(picture);
    // Gone already, its name may be given again; and it must still show above.
    nui::TextureRef next = nui::makeTexture(&Red, 1, 1);
    nui::texturedQuad(&next, 4, 0, 1, 6, nullptr);
    nui::freeTexture(next);
    nui::setClip(Unclipped);
    nui::setColor(Blue, 0.5F);
    nui::fillRect(3, 0, 1, 4);
    nui::setColor(Red);
    nui::line(6.5F, 0.5F, 6.5F, 3.5F);
    nui::setClip({0, 0, 8, 1});
}

TEST_F(drawn_frame_test, has_the_pixels_of_what_is_drawn_at_once)
{
    constexpr const char* Letters = "ff0000=r 0000ff=b 7f0080=m 80007f=m 7f007f=m 000000=.";
    drawEverything();
    nui::fillRect(7, 0, 1, 4);
    const std::string expected = pixelRows(0, 0, 8, 4, Letters);
    EXPECT_EQ(expected, "rrrm..rr\n"
                        "rbrmr.r.\n"
                        "rbrmr.r.\n"
                        "rrrm....\n");
    screen.clear();
    frame().begin(40, 30);
    drawEverything();
    EXPECT_EQ(pixelAt(0, 0), "000000") << "nothing is drawn before the frame ends";
    frame().drawOnly();
    nui::fillRect(7, 0, 1, 4); // behind the frame; its last clip is in force
    EXPECT_EQ(pixelRows(0, 0, 8, 4, Letters), expected);
}

TEST_F(drawn_frame_test, keeps_its_order_around_code_that_draws_by_itself_and_is_always_drawn)
{
    const auto content = [] {
        nui::setColor(Red);
        nui::fillRect(0, 0, 9, 9);
        const float triangle[] = {0, 0, 0, 0, 8, 0, 8, 0, 0};
        nui::setColor(Blue);
        nui::drawTriangles(triangle, 3);
        nui::setColor(Red);
        nui::fillRect(0, 0, 2, 2);
    };
    frame().begin(40, 30);
    content();
    frame().drawOnly();
    EXPECT_EQ(pixelAt(0, 0) + pixelAt(3, 1) + pixelAt(8, 8), "ff00000000ffff0000");
    EXPECT_TRUE(isDrawn(content));
    EXPECT_TRUE(isDrawn(content));
}

TEST_F(drawn_frame_test, may_be_interrupted_by_other_frames)
{
    const nui::test::HeadlessScreen other;
    nui::makeCurrent(&screen.window);
    const auto square = [] { nui::fillRect(0, 0, 2, 2); };
    // As when a page opens a dialog while it is drawn, whose loop draws all windows.
    frame().begin(40, 30);
    square();
    nui::makeCurrent(&screen.window);
    frame().begin(40, 30);
    nui::fillRect(4, 0, 2, 2);
    frame().drawOnly();
    nui::fillRect(8, 0, 2, 2);
    EXPECT_EQ(pixelRows(0, 0, 10, 1, "ff0000=r 000000=."), "rr..rr..rr\n");
    EXPECT_TRUE(frame().show(now));
    EXPECT_TRUE(isDrawn([] { nui::fillRect(4, 0, 2, 2); })) << "what it shows is not known";

    auto closed = std::make_unique<nui::DrawnFrame>();
    closed->begin(40, 30);
    square();
    closed.reset();
    screen.clear();
    nui::fillRect(4, 0, 2, 2);
    EXPECT_EQ(pixelRows(0, 0, 6, 1, "ff0000=r 000000=."), "....rr\n");
}

/// Primitives that a turn of the loop sends to GL.
std::uint64_t drawnByTurn(nui::test::RunningToolkit& toolkit)
{
    const std::uint64_t before = nui::drawnPrimitives();
    toolkit.clock.advance(100);
    if (nui::engine().step())
        nui::engine().draw(false);
    return nui::drawnPrimitives() - before;
}

TEST(drawn_frames_of_the_loop, leave_a_window_alone_until_something_changes_or_lays_it_bare)
{
    nui::test::RunningToolkit toolkit;
    const auto screen =
        toolkit.open("{'widgets': [{'class': 'Screen', 'id': 'screen',"
                     "'windowWidth': 120, 'windowHeight': 80, 'backgroundColor': '#fff',"
                     "'children': [{'class': 'Widget', 'name': 'inside'}]}]}");
    nui::Widget& inside = *screen->findByName("inside");
    EXPECT_GT(drawnByTurn(toolkit), 0U);
    EXPECT_EQ(drawnByTurn(toolkit), 0U);
    inside.backgroundColor = Red;
    EXPECT_GT(drawnByTurn(toolkit), 0U);
    EXPECT_EQ(drawnByTurn(toolkit), 0U);
    toolkit.windowEvent(SDL_WINDOWEVENT_EXPOSED, *screen);
    EXPECT_GT(drawnByTurn(toolkit), 0U);
    EXPECT_EQ(drawnByTurn(toolkit), 0U);
}

} // namespace
