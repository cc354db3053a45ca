#include "shared/ui/unit.h"

#include <gtest/gtest.h>

namespace {

using nrd::shared::ui::millimetres;

TEST(unit_test, a_length_counts_in_its_own_unit_and_converts_to_others)
{
    constexpr double Inch = 0.0254;
    EXPECT_DOUBLE_EQ(millimetres(50.8).in(Inch), 2);
    EXPECT_DOUBLE_EQ(millimetres::from(2, Inch).value(), 50.8);
    EXPECT_DOUBLE_EQ(millimetres(3).in(0.001), 3);
    EXPECT_EQ(millimetres(1), millimetres(1));
    EXPECT_FALSE(millimetres(1) == millimetres(2));
}

} // namespace
