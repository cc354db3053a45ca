#include "nui/animation/easing.h"

#include <gtest/gtest.h>

namespace {

namespace easing = nui::easing;
using nui::Easing;

TEST(easing_test, curves_go_through_the_points_of_their_formulas)
{
    // Worked out by hand; the halves of in-out curves are asked apart, and so are the exponents
    // and bases given and assumed.
    const struct {
        const char* name;
        Easing function;
        float t;
        float parameter;
        float expected;
    } cases[] = {
        {"linear", easing::linear, 0.3F, 5, 0.3F},
        {"zero", easing::zero, 0.3F, 0, 0},
        {"one", easing::one, 0.3F, 0, 1},
        {"square", easing::powerIn, 0.5F, 0, 0.25F},
        {"cube", easing::powerIn, 0.5F, 3, 0.125F},
        {"square, first half", easing::powerInOut, 0.25F, 0, 0.125F},
        {"square, second half", easing::powerInOut, 0.75F, 0, 0.875F},
        {"cube, first half", easing::powerInOut, 0.25F, 3, 0.0625F},
        {"cube, second half", easing::powerInOut, 0.75F, 3, 0.9375F},
        {"fourth power, second half", easing::powerInOut, 0.75F, 4, 0.96875F},
        {"square root", easing::root, 0.25F, 0, 0.5F},
        {"cube root", easing::root, 0.125F, 3, 0.5F},
        {"sine in", easing::sineIn, 1 / 3.0F, 0, 0.1339746F},
        {"sine in, squared", easing::sineIn, 1 / 3.0F, 2, 0.0179492F},
        {"sine out", easing::sineOut, 1 / 3.0F, 0, 0.5F},
        {"sine out, squared", easing::sineOut, 1 / 3.0F, 2, 0.25F},
        {"sine in and out", easing::sineInOut, 1 / 3.0F, 0, 0.25F},
        {"sine in and out, squared", easing::sineInOut, 1 / 3.0F, 2, 0.0625F},
        {"exponential in", easing::exponentialIn, 0.9F, 0, 0.5F},
        {"exponential in, base 4", easing::exponentialIn, 0.9F, 4, 0.25F},
        {"exponential in begins at 0", easing::exponentialIn, 0, 0, 0},
        {"exponential out", easing::exponentialOut, 0.1F, 0, 0.5F},
        {"exponential out, base 4", easing::exponentialOut, 0.1F, 4, 0.75F},
        {"exponential, first half", easing::exponentialInOut, 0.45F, 0, 0.25F},
        {"exponential, first half, base 4", easing::exponentialInOut, 0.45F, 4, 0.125F},
        {"exponential, second half", easing::exponentialInOut, 0.55F, 0, 0.75F},
        {"the second half knows no base", easing::exponentialInOut, 0.55F, 4, 0.75F},
        {"exponential does not begin at 0", easing::exponentialInOut, 0, 0, 0.00048828125F},
        {"back in", easing::backIn, 0.5F, 0, -0.0876975F},
        {"back out", easing::backOut, 0.5F, 0, 1.0876975F},
        {"back, first half", easing::backInOut, 0.25F, 0, -0.0996818F},
        {"back, second half", easing::backInOut, 0.75F, 0, 1.0996818F},
        {"bounce, falling", easing::bounceOut, 0.2F, 0, 0.3025F},
        {"bounce, first", easing::bounceOut, 0.5F, 0, 0.765625F},
        {"bounce, second", easing::bounceOut, 0.8F, 0, 0.94F},
        {"bounce, third", easing::bounceOut, 0.95F, 0, 0.98453125F},
        {"bounce in", easing::bounceIn, 0.5F, 0, 0.234375F},
        {"bounce, first half", easing::bounceInOut, 0.25F, 0, 0.1171875F},
        {"bounce, second half", easing::bounceInOut, 0.75F, 0, 0.8828125F},
        {"bounce, reversed", easing::reverseBounce, 0.8F, 0, 0.3025F},
        {"elastic in", easing::elasticIn, 0.5F, 0, 0.0274244F},
        {"elastic in, period 0.4", easing::elasticIn, 0.5F, 0.4F, 0.0},
        {"elastic out", easing::elasticOut, 0.5F, 0, 0.9725756F},
        {"elastic out, period 0.4", easing::elasticOut, 0.4F, 0.4F, 0.9375F},
        {"elastic, first half", easing::elasticInOut, 0.25F, 0, 0.0137122F},
        {"elastic, second half", easing::elasticInOut, 0.75F, 0, 0.9862878F},
    };
    for (const auto& [name, function, t, parameter, expected] : cases)
        EXPECT_NEAR(function(t, parameter), expected, 0.000002F) << name;
}

TEST(easing_test, curves_that_end_a_switch_end_at_1_exactly)
{
    const Easing ends[] = {easing::linear,         easing::one,         easing::powerIn,
                           easing::powerInOut,     easing::root,        easing::sineIn,
                           easing::sineOut,        easing::sineInOut,   easing::exponentialIn,
                           easing::exponentialOut, easing::backIn,      easing::backOut,
                           easing::backInOut,      easing::bounceIn,    easing::elasticIn,
                           easing::elasticOut,     easing::elasticInOut};
    for (const Easing ending : ends)
        EXPECT_EQ(ending(1, 0), 1) << "curve " << &ending - ends;
}

} // namespace
