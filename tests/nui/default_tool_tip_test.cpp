#include "nui/widgets/default_tool_tip.h"

#include "nui/widgets/container.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

TEST(default_tool_tip_test, it_keeps_itself_on_its_screen)
{
    struct {
        float x, y, width, height;
        float placedX, placedY;
    } const cases[] = {
        {10, 20, 30, 10, 10, 20},     // fits
        {80, 20, 30, 10, 75, 20},     // out at the right: as far left as it must
        {75, 90, 30, 10, 75, 90},     // touching both edges
        {20, 91, 30, 10, 20, 33},     // out below: above the pointer
        {20, 20, 101, 10, 5, 20},     // wider than the screen
        {90, 95, 30, 10, 75, 37},     // out at both
        {-20, -20, 30, 10, -20, -20}, // left and top are none of its business
    };
    const auto screen = std::make_shared<nui::Container>();
    screen->localX = 5;
    screen->width = 100;
    screen->height = 100;
    for (const auto& wanted : cases) {
        nui::DefaultToolTip toolTip;
        toolTip.localX = wanted.x;
        toolTip.localY = wanted.y;
        toolTip.width = wanted.width;
        toolTip.height = wanted.height;
        toolTip.parent = screen.get();
        toolTip.place();
        EXPECT_EQ(toolTip.localX, wanted.placedX) << wanted.x;
        EXPECT_EQ(toolTip.localY, wanted.placedY) << wanted.x;
    }
}

} // namespace
