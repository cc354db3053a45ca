#include "nui/widgets/slider.h"

#include "nui/engine/engine.h"
#include "support/nui/control_test.h"

#include <SDL_keycode.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace {

using nui::Slider;

class slider_test : public nui::test::ControlTest {
protected:
    /// With so much room for the thumb to move in that a value is a pixel.
    void openSlider(const std::string& keys = "")
    {
        open("{'class': 'Slider', 'name': 'slider', 'width': 100, 'height': 100" + keys + "}");
        slider = &get<Slider>("slider");
        const float thumb = std::round(10 * nui::engine().metrics.displayScale);
        slider->width = slider->height = 100 + thumb;
        noteActivations("slider", [this] { return std::to_string(std::lround(slider->value())); });
    }

    Slider* slider = nullptr;
};

TEST_F(slider_test, the_thumb_is_dragged_and_comes_to_a_press_beside_it)
{
    openSlider(", 'value': 50");
    press(*slider);
    EXPECT_EQ(taken(), "") << "on the thumb";
    moveTo(*slider, 10);
    moveTo(*slider, 500);
    EXPECT_EQ(taken(), "60 100 ");
    toolkit.release();
    moveTo(*slider, -20);
    EXPECT_EQ(taken(), "");
    toolkit.press();
    moveTo(*slider, -21);
    EXPECT_EQ(taken(), "30 29 ");
    EXPECT_EQ(focused(), "slider");
}

TEST_F(slider_test, a_vertical_one_grows_upwards)
{
    openSlider(", 'value': 50, 'orientation': 'Vertical'");
    press(*slider);
    moveTo(*slider, 0, -30);
    EXPECT_EQ(taken(), "80 ");
}

TEST_F(slider_test, keys_step_from_the_minimum_to_the_limits)
{
    openSlider(", 'minimum': 5, 'maximum': 42, 'step': 10, 'value': 5");
    focus("slider");
    toolkit.keys({SDLK_LEFT, SDLK_RIGHT, SDLK_UP, SDLK_DOWN, SDLK_PAGEUP, SDLK_END, SDLK_RIGHT,
                  SDLK_LEFT, SDLK_PAGEDOWN, SDLK_HOME});
    EXPECT_EQ(taken(), "15 25 15 25 42 35 25 5 ");
    slider->setEnabled(false);
    toolkit.key(SDLK_END);
    EXPECT_EQ(taken(), "");
}

TEST_F(slider_test, the_wheel_turns_it_only_while_it_has_the_keyboard)
{
    openSlider(", 'value': 50");
    moveTo(*slider);
    toolkit.wheel(1);
    EXPECT_EQ(taken(), "");
    focus("slider");
    toolkit.wheel(2);
    EXPECT_EQ(taken(), "52 ");
}

TEST_F(slider_test, values_of_the_program_stay_within_the_limits_and_raise_nothing)
{
    openSlider(", 'step': 10");
    slider->setValue(33);
    EXPECT_EQ(slider->value(), 33);
    slider->setValue(NAN);
    EXPECT_EQ(slider->value(), 33);
    slider->setValue(1000);
    EXPECT_EQ(slider->value(), 100);
    slider->setRange(10, -5);
    EXPECT_EQ(slider->value(), 10);
    press(*slider);
    EXPECT_EQ(taken(), "");
}

} // namespace
