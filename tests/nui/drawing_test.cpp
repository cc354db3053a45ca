#include "nui/draw/drawing.h"

#include "nui/draw/drawing_3d.h"
#include "nui/draw/gl_context.h"
#include "nui/draw/texture.h"
#include "support/nui/headless_screen.h"
#include "support/nui/pixel_at.h"

#include <GL/glew.h>
#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <string>

namespace {

using nui::test::pixelAt;
using nui::test::pixelRows;

constexpr nui::Color Red = 0xFF0000FF;
constexpr nui::Color Blue = 0xFFFF0000;

class drawing_test : public testing::Test {
protected:
    drawing_test() { nui::setColor(Red); }

    /// The left top corner of the window: red 'r', blue 'b', black '.'.
    static std::string corner(int width, int height)
    {
        return pixelRows(0, 0, width, height, "ff0000=r 0000ff=b 000000=.");
    }

    nui::test::HeadlessScreen screen;
};

TEST_F(drawing_test, a_rectangle_fills_its_pixels_and_no_others)
{
    nui::fillRect(1, 2, 3, 2);
    EXPECT_EQ(corner(5, 5), ".....\n"
                            ".....\n"
                            ".rrr.\n"
                            ".rrr.\n"
                            ".....\n");
}

TEST_F(drawing_test, lines_through_the_centres_of_pixels_are_one_pixel_wide)
{
    nui::line(1.5F, 1.5F, 5.5F, 1.5F);
    nui::line(2.5F, 3.5F, 2.5F, 6.5F);
    EXPECT_EQ(corner(7, 8), ".......\n"
                            ".rrrr..\n"
                            ".......\n"
                            "..r....\n"
                            "..r....\n"
                            "..r....\n"
                            ".......\n"
                            ".......\n");
}

TEST_F(drawing_test, an_outline_runs_around_its_rectangle)
{
    nui::rectOutline(0.5F, 0.5F, 4, 3);
    // Which of two sides has the corner between them is the driver's affair.
    EXPECT_EQ(pixelRows(1, 0, 3, 5, "ff0000=r 000000=."), "rrr\n...\n...\nrrr\n...\n");
    EXPECT_EQ(pixelRows(0, 1, 6, 2, "ff0000=r 000000=."), "r...r.\nr...r.\n");
}

TEST_F(drawing_test, a_line_of_many_points_comes_back_to_its_start_if_it_is_closed)
{
    const nui::Point points[] = {{0.5F, 0.5F}, {6.5F, 0.5F}, {6.5F, 4.5F}, {0.5F, 4.5F}};
    nui::polyline(points, 4, false);
    EXPECT_EQ(pixelAt(3, 0) + pixelAt(6, 2) + pixelAt(3, 4), "ff0000ff0000ff0000");
    EXPECT_EQ(pixelAt(0, 2), "000000");
    nui::polyline(points, 4, true);
    EXPECT_EQ(pixelAt(0, 2), "ff0000");
}

TEST_F(drawing_test, a_polygon_is_filled)
{
    const nui::Point points[] = {{0, 0}, {0, 6}, {3, 6}, {3, 3}};
    nui::fillPolygon(points, 4);
    EXPECT_EQ(pixelAt(0, 2), "ff0000");
    EXPECT_EQ(pixelAt(2, 5), "ff0000");
    EXPECT_EQ(pixelAt(2, 0), "000000");
    EXPECT_EQ(pixelAt(3, 5), "000000");
}

TEST_F(drawing_test, angles_run_clockwise_from_the_top_and_in_either_order)
{
    constexpr float Quarter = std::numbers::pi_v<float> / 2;
    nui::pie(20, 15, 10, 10, Quarter, 0);
    EXPECT_EQ(pixelAt(24, 11), "ff0000");
    EXPECT_EQ(pixelAt(15, 11), "000000");
    EXPECT_EQ(pixelAt(24, 19), "000000");
    screen.clear();
    // The larger angle is a point of its own, however the steps fall.
    nui::arc(20.5F, 15.5F, 10, 8, 0, Quarter);
    EXPECT_EQ(pixelAt(21, 7), "ff0000") << "at the top";
    EXPECT_EQ(pixelAt(30, 14), "ff0000") << "at the right";
    EXPECT_EQ(pixelAt(24, 11), "000000") << "inside";
    EXPECT_EQ(pixelAt(10, 15), "000000") << "at the left";
}

TEST_F(drawing_test, the_line_width_is_state_of_the_layer)
{
    nui::setLineWidth(3);
    nui::line(0, 2.5F, 4, 2.5F);
    nui::setLineWidth(0.8F);
    EXPECT_EQ(corner(1, 6), ".\nr\nr\nr\n.\n.\n");
}

TEST_F(drawing_test, alpha_is_multiplied_and_cut_and_counts_once_blending_is_on)
{
    nui::setColor(0x81030201, 0.5F);
    EXPECT_EQ(nui::getColor(), 0x40030201U);
    nui::setColorRGB(1, 2, 3);
    EXPECT_EQ(nui::getColor(), 0xFF030201U);

    const nui::Color pixel = nui::OpaqueWhite;
    nui::TextureRef white = nui::makeTexture(&pixel, 1, 1);
    nui::setColor(Red, 0.5F);
    nui::fillRect(0, 0, 1, 1);
    EXPECT_EQ(pixelAt(0, 0), "ff0000") << "nothing has switched blending on";
    nui::texturedQuad(&white, 1, 0, 1, 1, nullptr);
    EXPECT_EQ(pixelAt(1, 0), "7f0000") << "tinted, and half as bright";
    nui::fillRect(2, 0, 1, 1);
    EXPECT_EQ(pixelAt(2, 0), "7f0000") << "it stays on";
    nui::freeTexture(white);
}

TEST_F(drawing_test, a_clip_cuts_in_window_coordinates)
{
    nui::setClip({1, 1, 3, 2});
    nui::fillRect(0, 0, 9, 9);
    EXPECT_EQ(corner(5, 4), ".....\n"
                            ".rrr.\n"
                            ".rrr.\n"
                            ".....\n");
    nui::intersectClip({2, 0, 9, 2});
    EXPECT_EQ(nui::getClip(), (nui::Rect{2, 1, 2, 1}));
    nui::setColor(Blue);
    nui::fillRect(0, 0, 9, 9);
    EXPECT_EQ(corner(5, 4), ".....\n"
                            ".rbb.\n"
                            ".rrr.\n"
                            ".....\n");
    // Apart from each other in both directions: the sizes must not turn negative.
    nui::intersectClip({30, 20, 5, 5});
    nui::fillRect(0, 0, 40, 30);
    EXPECT_EQ(pixelAt(0, 0) + pixelAt(31, 21), "000000000000");
    EXPECT_EQ(nui::getClip().width, 0);
    EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR});

    nui::setClip({0, 0, nui::NoClip, 0});
    nui::intersectClip({0, 0, 1, 1});
    EXPECT_EQ(nui::getClip(), (nui::Rect{0, 0, 1, 1})) << "without one in force it is taken as is";
    nui::setClip({0, 0, nui::NoClip, 0});
    nui::fillRect(0, 0, 40, 30);
    EXPECT_EQ(pixelAt(39, 29), "0000ff");
}

TEST_F(drawing_test, the_clip_is_put_back_after_code_that_draws_by_itself)
{
    nui::setClip({0, 0, 1, 1});
    glDisable(GL_SCISSOR_TEST);
    nui::restoreScissor();
    nui::fillRect(0, 0, 2, 1);
    EXPECT_EQ(corner(2, 1), "r.\n");
    nui::setClip({0, 0, nui::NoClip, 0});
    nui::restoreScissor();
    nui::fillRect(0, 0, 2, 1);
    EXPECT_EQ(corner(2, 1), "rr\n");
}

TEST_F(drawing_test, a_textured_quad_shows_the_picture_upright_and_leaves_the_bound_texture)
{
    // Red and blue above, two whites below, of which one is transparent.
    const std::array<nui::Color, 4> pixels = {Red, Blue, 0xFFFFFFFF, 0x00FFFFFF};
    nui::TextureRef texture = nui::makeTexture(pixels.data(), 2, 2);
    const nui::Color other = Blue;
    nui::TextureRef bound = nui::makeTexture(&other, 1, 1);
    const nui::TexturePoint whole[] = {{0, 0}, {0, 1}, {1, 1}, {1, 0}};
    nui::setColor(nui::OpaqueWhite);
    nui::texturedQuad(&texture, 1, 1, 2, 2, whole);
    EXPECT_EQ(pixelRows(0, 0, 4, 4, "ff0000=r 0000ff=b ffffff=w 000000=."), "....\n"
                                                                            ".rb.\n"
                                                                            ".w..\n"
                                                                            "....\n");
    GLint name = 0;
    glGetIntegerv(GL_TEXTURE_BINDING_2D, &name);
    EXPECT_EQ(static_cast<GLuint>(name), bound.glName);
    nui::fillRect(5, 0, 1, 1);
    EXPECT_EQ(pixelAt(5, 0), "ffffff") << "fills are not textured";

    const nui::TextureRef none;
    nui::texturedQuad(nullptr, 8, 0, 2, 2, whole);
    nui::texturedQuad(&none, 8, 0, 2, 2, whole);
    EXPECT_EQ(pixelAt(8, 0), "000000");
    nui::freeTexture(texture);
    nui::freeTexture(bound);
    EXPECT_EQ(texture.glName, 0U);
}

TEST_F(drawing_test, in_space_the_angle_of_view_and_the_depth_range_decide)
{
    // Right angle: at a distance of 10 the view is 20 high, so this fills the middle half.
    constexpr float RightAngle = std::numbers::pi_v<float> / 2;
    const auto square = [](float distance, float half) {
        return std::array<float, 18>{-half, -half, -distance, half,  -half, -distance,
                                     half,  half,  -distance, -half, -half, -distance,
                                     half,  half,  -distance, -half, half,  -distance};
    };
    glEnable(GL_DEPTH_TEST);
    nui::setPerspective(RightAngle, 40.0F / 30);
    nui::drawTriangles(square(10, 5).data(), 6);
    nui::setColor(Blue);
    nui::drawTriangles(square(20, 18).data(), 6);
    EXPECT_EQ(pixelAt(20, 15), "ff0000") << "the near one is in front";
    EXPECT_EQ(pixelAt(20, 8), "ff0000");
    EXPECT_EQ(pixelAt(20, 6), "0000ff") << "the far one shows around it";
    EXPECT_EQ(pixelAt(20, 0), "000000");

    screen.clear();
    nui::setDepthRange(1, 15);
    nui::setPerspective(RightAngle, 40.0F / 30);
    nui::setDepthRange(1, 500);
    nui::drawTriangles(square(20, 18).data(), 6);
    EXPECT_EQ(pixelAt(20, 15), "000000") << "beyond the far plane";
}

TEST_F(drawing_test, in_space_light_falls_on_faces_that_are_turned_to_it)
{
    const float vertices[] = {-9, -9, -5, 9, -9, -5, 0, 9, -5};
    const float normals[] = {0, 0, 1, 0, 0, 1, 0, 0, 1};
    const std::uint32_t indices[] = {0, 1, 2};
    nui::setFrustum(-1, 1, -1, 1);
    nui::Light light;
    nui::Material material;
    material.ambient = {0, 0, 0, 1};
    material.diffuse = {0, 1, 0, 1};
    nui::setMaterial(material);
    nui::setNormals(normals);
    nui::enableLighting(true);
    nui::enableLight(0, true);
    nui::setLight(0, light);
    nui::drawTriangles(vertices, indices, 3);
    EXPECT_EQ(pixelAt(20, 15), "00ff00");
    light.position = {0, 0, -1, 0};
    nui::setLight(0, light);
    nui::drawTriangles(vertices, indices, 3);
    EXPECT_EQ(pixelAt(20, 15), "000000");
    nui::enableLight(0, false);
    nui::enableLighting(false);
    nui::setNormals(nullptr);
    nui::setColor(Red);
    nui::drawTriangles(vertices, indices, 3);
    EXPECT_EQ(pixelAt(20, 15), "ff0000") << "unlit, the current colour counts";
}

} // namespace
