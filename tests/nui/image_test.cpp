#include "nui/widgets/image.h"

#include "nui/draw/drawing.h"
#include "nui/engine/engine.h"
#include "support/nui/headless_screen.h"
#include "support/nui/picture_folder.h"
#include "support/nui/pixel_at.h"

#include <gtest/gtest.h>
#include <string>

namespace {

using nui::Image;
using nui::ImageScaleMode;

class image_test : public testing::Test {
protected:
    image_test()
    {
        nui::Engine::create();
        pictures.write("wide.png", "rrrr\nbbbb\n");
        image.texture = cache.load("wide", pictures.path());
        image.localX = 1;
        image.localY = 1;
    }
    ~image_test() override { nui::Engine::close(); }

    /// The image drawn into a box of that size, with two pixels of room around.
    std::string drawn(float width, float height)
    {
        screen.clear();
        image.width = width;
        image.height = height;
        image.draw({0, 0}, 1);
        return nui::test::pixelRows(0, 0, static_cast<int>(width) + 2, static_cast<int>(height) + 2,
                                    "ff0000=r 0000ff=b 000000=.");
    }

    nui::test::HeadlessScreen screen;
    nui::test::PictureFolder pictures;
    nui::TextureCache cache;
    Image image;
};

TEST_F(image_test, scale_modes_draw_the_picture_as_it_is_or_fill_the_box_or_fit_it)
{
    image.scaleMode = ImageScaleMode::None;
    EXPECT_EQ(drawn(2, 4), "....\n.rrr\n.bbb\n....\n....\n....\n") << "beyond its box";
    image.scaleMode = ImageScaleMode::Stretch;
    EXPECT_EQ(drawn(2, 2), "....\n.rr.\n.bb.\n....\n");
    image.scaleMode = ImageScaleMode::KeepAspectRatio;
    EXPECT_EQ(drawn(4, 4), "......\n......\n.rrrr.\n.bbbb.\n......\n......\n");
    EXPECT_EQ(drawn(6, 2), "........\n..rrrr..\n..bbbb..\n........\n");
}

TEST_F(image_test, colour_and_alpha_tint_the_picture)
{
    image.scaleMode = ImageScaleMode::Stretch;
    image.color = 0xFF0000FF;
    image.alpha = 0.5F;
    drawn(4, 2);
    EXPECT_EQ(nui::test::pixelAt(1, 1), "7f0000");
    EXPECT_EQ(nui::test::pixelAt(1, 2), "000000") << "no blue is left of blue";
}

TEST_F(image_test, without_a_picture_only_the_background_is_drawn)
{
    image.texture = nullptr;
    image.backgroundColor = 0xFFFF0000;
    EXPECT_EQ(drawn(2, 1), "....\n.bb.\n....\n");
}

std::string measured(Image& image, nui::Size width, nui::Size height)
{
    image.widthValue = width.value;
    image.widthMode = width.mode;
    image.heightValue = height.value;
    image.heightMode = height.mode;
    image.width = -1;
    image.height = -1;
    image.measure();
    return std::to_string(static_cast<int>(image.width)) + "x" +
           std::to_string(static_cast<int>(image.height));
}

TEST_F(image_test, content_sizes_come_from_the_picture_and_keep_its_shape)
{
    const nui::Size content{1, nui::Content};
    const nui::Size pixels{8, nui::Px};
    EXPECT_EQ(measured(image, content, content), "4x2");
    EXPECT_EQ(measured(image, content, pixels), "16x8");
    EXPECT_EQ(measured(image, pixels, content), "8x4");
    EXPECT_EQ(measured(image, pixels, pixels), "-1x-1");
    image.scaleMode = ImageScaleMode::Stretch;
    EXPECT_EQ(measured(image, content, content), "-1x-1");
    image.scaleMode = ImageScaleMode::KeepAspectRatio;
    image.texture = nullptr;
    EXPECT_EQ(measured(image, content, content), "-1x-1");
}

TEST_F(image_test, a_share_that_the_parent_gave_counts_as_resolved)
{
    image.widthMode = nui::Content;
    image.heightMode = nui::Weight;
    image.width = -1;
    image.height = 10;
    image.measure();
    EXPECT_EQ(image.width, 20);
    EXPECT_EQ(image.height, 10);
}

} // namespace
