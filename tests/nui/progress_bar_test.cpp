#include "nui/widgets/progress_bar.h"

#include "nui/engine/engine.h"
#include "nui/widgets/container.h"
#include "support/nui/headless_screen.h"
#include "support/nui/layout.h"
#include "support/nui/picture_folder.h"
#include "support/nui/pixel_at.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>

namespace {

class progress_bar_test : public testing::Test {
protected:
    /// The bar of a row as wide as the window, drawn at its top.
    std::shared_ptr<nui::ProgressBar> draw(const std::string& keys)
    {
        row =
            nui::test::containerOf("{'class': 'Container', 'width': 40, 'height': 4, 'children': ["
                                   "{'class': 'ProgressBar', 'name': 'bar', 'color': '#ff0000'" +
                                   keys + "}]}");
        auto bar = std::dynamic_pointer_cast<nui::ProgressBar>(row->children()[0]);
        nui::test::layOut(*row);
        redraw();
        return bar;
    }

    void redraw()
    {
        window.clear();
        row->draw({0, 0}, 1);
    }

    static std::string topRow()
    {
        return nui::test::pixelRows(0, 0, 40, 1, "ff0000=r 0000ff=b ffffff=w 000000=.");
    }

    nui::test::MeasuringEngine engine;
    nui::test::HeadlessScreen window{40, 10};
    nui::test::PictureFolder pictures;
    std::shared_ptr<nui::Container> row;
};

TEST_F(progress_bar_test, a_value_fills_its_share_and_needs_no_tween)
{
    const auto bar = draw(", 'indeterminate': false, 'value': 0.25");
    EXPECT_EQ(topRow(), std::string(10, 'r') + std::string(30, '.') + "\n");
    bar->setValue(0);
    redraw();
    EXPECT_EQ(topRow(), std::string(40, '.') + "\n");
    bar->setValue(1);
    redraw();
    EXPECT_EQ(topRow(), std::string(40, 'r') + "\n");
    bar->setValue(std::numeric_limits<float>::infinity());
    redraw();
    EXPECT_EQ(topRow(), std::string(40, 'r') + "\n") << "progress without an end";
    EXPECT_EQ(nui::engine().tweens.size(), 0U);
}

TEST_F(progress_bar_test, pictures_stretch_over_the_value_and_stripes_run_along_it)
{
    nui::engine().resourceDirectory = pictures.path();
    pictures.write("bar.png", "w\n");
    pictures.write("stripes.png", "wwkk\nwwkk\nwwkk\nwwkk\n");
    draw(", 'indeterminate': false, 'value': 0.5, 'imageFile': 'bar', 'backImageFile': 'bar',"
         "'secondaryColor': '#0000ff'");
    EXPECT_EQ(topRow(), std::string(20, 'r') + std::string(20, 'b') + "\n");
    draw(", 'value': 0.25, 'candystickImageFile': 'stripes', 'candystickBackImageFile': 'bar'");
    EXPECT_EQ(topRow(), "ww..ww..ww" + std::string(30, 'w') + "\n");
}

// Pitches of e^(i + phase) - 1, with gaps of twice the height; the last block ends with the bar.
TEST_F(progress_bar_test, without_a_value_blocks_grow_to_the_right)
{
    draw("");
    // 1.7, 6.4, 19.1 and 53.6 wide with gaps of 8: blocks of 11.1 from 8.1 and 12.8 from 27.2.
    EXPECT_EQ(topRow(), "........rrrrrrrrrrr........rrrrrrrrrrrrr\n");
}

TEST_F(progress_bar_test, the_pattern_runs_only_while_it_can_be_seen)
{
    const auto bar = draw("");
    EXPECT_EQ(nui::engine().tweens.size(), 1U);
    EXPECT_TRUE(bar->isRunning());
    row->visibility = nui::visibility::Collapsed;
    row->place();
    EXPECT_FALSE(bar->isRunning());
    row->visibility = nui::visibility::Visible;
    row->place();
    EXPECT_TRUE(bar->isRunning());
    nui::engine().tweens.update(0);
    nui::engine().tweens.update(0.5F);
    const std::string before = topRow();
    redraw();
    EXPECT_NE(topRow(), before);
    bar->setIndeterminate(false);
    EXPECT_FALSE(bar->isRunning());
    bar->setIndeterminate(true);
    EXPECT_TRUE(bar->isRunning());
    *bar = nui::ProgressBar(*bar);
    EXPECT_TRUE(bar->isRunning());
}

TEST_F(progress_bar_test, a_clone_runs_by_itself_and_a_dead_one_leaves_no_tween)
{
    const auto bar = draw("");
    const auto copy = std::dynamic_pointer_cast<nui::ProgressBar>(bar->clone());
    EXPECT_FALSE(copy->isRunning());
    row->add(copy);
    nui::test::layOut(*row);
    EXPECT_EQ(nui::engine().tweens.size(), 2U);
    row->remove(copy.get());
    EXPECT_TRUE(bar->isRunning());
}

} // namespace
