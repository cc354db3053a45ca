#include "nui/draw/texture.h"

#include "nui/draw/drawing.h"
#include "nui/draw/gl_context.h"
#include "support/nui/headless_screen.h"
#include "support/nui/picture_folder.h"
#include "support/nui/pixel_at.h"

#include <GL/glew.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

namespace {

using nui::imagePath;
using nui::TextureCache;
using nui::TextureRef;

TEST(resource_name_test, hashes_are_those_of_fnv_1a)
{
    const nui::ResourceNameHash hash;
    EXPECT_EQ(hash(""), 0x811C9DC5U);
    EXPECT_EQ(hash("a"), 0xE40C292CU);
    EXPECT_EQ(hash("foobar"), 0xBF9CF968U);
    EXPECT_EQ(hash("\xFF"), (0x811C9DC5U ^ 0xFFU) * 16777619U) << "bytes are not signed";
}

TEST(resource_name_test, a_name_without_an_ending_is_a_png_file)
{
    EXPECT_EQ(imagePath("logo", "res"), "res/logo.png");
    EXPECT_EQ(imagePath("logo.bmp", "res"), "res/logo.bmp");
    EXPECT_EQ(imagePath("logo", "res.d"), "res.d/logo.png");
    EXPECT_EQ(imagePath("a.b/c", "res"), "res/a.b/c.png");
    EXPECT_EQ(imagePath("a.b\\c", "res"), "res/a.b/c.png");
}

class texture_test : public testing::Test {
protected:
    texture_test() { pictures.write("two.png", "rg\n"); }

    const TextureRef* load(const std::string& name) { return cache.load(name, pictures.path()); }

    nui::test::HeadlessScreen screen;
    nui::test::PictureFolder pictures;
    TextureCache cache;
};

TEST_F(texture_test, a_name_is_loaded_once_and_two_names_twice)
{
    const TextureRef* const first = load("two");
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->width, 2);
    EXPECT_EQ(first->height, 1);
    EXPECT_EQ(load("two"), first);
    const TextureRef* const second = load("two.png");
    ASSERT_NE(second, nullptr);
    EXPECT_NE(second->glName, first->glName);
    EXPECT_EQ(cache.size(), 2U);
}

TEST_F(texture_test, what_cannot_be_loaded_is_asked_for_again)
{
    EXPECT_EQ(load(""), nullptr);
    EXPECT_EQ(load("late"), nullptr);
    EXPECT_EQ(cache.size(), 0U);
    pictures.write("late.png", "b\n");
    EXPECT_NE(load("late"), nullptr);
}

TEST_F(texture_test, a_picture_keeps_its_colours_and_shrinks_without_mipmaps)
{
    const nui::TexturePoint whole[] = {{0, 0}, {0, 1}, {1, 1}, {1, 0}};
    nui::setColor(nui::OpaqueWhite);
    nui::texturedQuad(load("two"), 0, 0, 2, 1, whole);
    EXPECT_EQ(nui::test::pixelRows(0, 0, 3, 1, "ff0000=r 00ff00=g 000000=."), "rg.\n");
    nui::texturedQuad(load("two"), 4, 0, 1, 1, whole);
    EXPECT_THAT(nui::test::pixelAt(4, 0), testing::AnyOf("7f7f00", "808000")) << "both, mixed";
}

} // namespace
