#include "nui/widgets/progress_bar.h"

#include "support/nui/drawn_widget.h"
#include "support/nui/picture_folder.h"
#include "support/nui/pixel_at.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>

namespace {

/// A bar of 4 pixels, as wide as the window, drawn at its top.
class progress_bar_test : public nui::test::DrawnWidgetTest<nui::ProgressBar> {
protected:
    progress_bar_test() : DrawnWidgetTest(40, 10) {}

    void show(const std::string& keys)
    {
        build("'class': 'ProgressBar', 'height': 4, 'color': '#ff0000'" + keys);
        draw();
    }

    static std::string topRow()
    {
        return nui::test::pixelRows(0, 0, 40, 1, "ff0000=r 0000ff=b ffffff=w 000000=.");
    }

    nui::test::PictureFolder pictures;
};

TEST_F(progress_bar_test, a_value_fills_its_share_and_needs_no_tween)
{
    show(", 'indeterminate': false, 'value': 0.25");
    EXPECT_EQ(topRow(), std::string(10, 'r') + std::string(30, '.') + "\n");
    // The last is progress without an end.
    for (const auto& [value, filled] :
         {std::pair{0.0F, 0U}, {1.0F, 40U}, {std::numeric_limits<float>::infinity(), 40U}}) {
        widget->setValue(value);
        draw();
        EXPECT_EQ(topRow(), std::string(filled, 'r') + std::string(40 - filled, '.') + "\n");
    }
    EXPECT_EQ(nui::engine().tweens.size(), 0U);
}

TEST_F(progress_bar_test, pictures_stretch_over_the_value_and_stripes_run_along_it)
{
    nui::engine().resourceDirectory = pictures.path();
    pictures.write("bar.png", "w\n");
    pictures.write("stripes.png", "wwkk\nwwkk\nwwkk\nwwkk\n");
    show(", 'indeterminate': false, 'value': 0.5, 'imageFile': 'bar', 'backImageFile': 'bar',"
         "'secondaryColor': '#0000ff'");
    EXPECT_EQ(topRow(), std::string(20, 'r') + std::string(20, 'b') + "\n");
    show(", 'value': 0.25, 'candystickImageFile': 'stripes', 'candystickBackImageFile': 'bar'");
    EXPECT_EQ(topRow(), "ww..ww..ww" + std::string(30, 'w') + "\n");
}

// Pitches of e^(i + phase) - 1, with gaps of twice the height; the last block ends with the bar.
TEST_F(progress_bar_test, without_a_value_blocks_grow_to_the_right)
{
    show("");
    // 1.7, 6.4, 19.1 and 53.6 wide with gaps of 8: blocks of 11.1 from 8.1 and 12.8 from 27.2.
    EXPECT_EQ(topRow(), "........rrrrrrrrrrr........rrrrrrrrrrrrr\n");
}

TEST_F(progress_bar_test, the_pattern_runs_only_while_it_can_be_seen)
{
    show("");
    EXPECT_EQ(nui::engine().tweens.size(), 1U);
    EXPECT_TRUE(widget->isRunning());
    box->visibility = nui::visibility::Collapsed;
    box->place();
    EXPECT_FALSE(widget->isRunning());
    box->visibility = nui::visibility::Visible;
    box->place();
    EXPECT_TRUE(widget->isRunning());
    nui::engine().tweens.update(0);
    nui::engine().tweens.update(0.5F);
    const std::string before = topRow();
    draw();
    EXPECT_NE(topRow(), before);
    widget->setIndeterminate(false);
    EXPECT_FALSE(widget->isRunning());
    widget->setIndeterminate(true);
    EXPECT_TRUE(widget->isRunning());
    *widget = nui::ProgressBar(*widget);
    EXPECT_TRUE(widget->isRunning());
}

TEST_F(progress_bar_test, a_clone_runs_by_itself_and_a_dead_one_leaves_no_tween)
{
    show("");
    const auto copy = std::dynamic_pointer_cast<nui::ProgressBar>(widget->clone());
    EXPECT_FALSE(copy->isRunning());
    box->add(copy);
    nui::test::layOut(*box);
    EXPECT_EQ(nui::engine().tweens.size(), 2U);
    box->remove(copy.get());
    EXPECT_TRUE(widget->isRunning());
}

} // namespace
