#include "nui/widgets/number_field.h"

#include "nui/engine/engine.h"
#include "nui/text/number_text.h"
#include "nui/widgets/text_field.h"
#include "support/nui/control_test.h"

#include <SDL_keycode.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace {

using nui::engine;
using nui::NumberField;
using nui::numberFrom;
using nui::numberText;

TEST(number_text_test, numbers_are_written_with_the_decimals_that_are_asked_for)
{
    EXPECT_EQ(numberText(3.14159, 2, false), "3.14");
    EXPECT_EQ(numberText(-1234567.5, 1, true), "-1234567,5");
    EXPECT_EQ(numberText(2, 0, true), "2");
    EXPECT_EQ(numberText(-0.001, 2, false), "0.00") << "nothing has no sign";
    EXPECT_EQ(numberText(0.5, 20, false), "0.500000000");
    EXPECT_EQ(numberText(std::numeric_limits<double>::max(), 0, false).size(), 309U);
}

TEST(number_text_test, point_and_comma_are_taken_and_nothing_else_is_a_number)
{
    EXPECT_EQ(numberFrom(" 1.5 "), 1.5);
    EXPECT_EQ(numberFrom("-,5"), -0.5);
    EXPECT_EQ(numberFrom("+7."), 7);
    for (const char* const text :
         {"", " ", "-", ".", "1.2.3", "1 2", "1e3", "inf", "nan", "0x10", "+-1", "--1", "12mm"})
        EXPECT_EQ(numberFrom(text), std::nullopt) << text;
    EXPECT_EQ(numberFrom(std::string(400, '9')), std::nullopt);
}

class number_field_test : public nui::test::ControlTest {
protected:
    void openField(const std::string& keys = "")
    {
        open("{'class': 'NumberField', 'name': 'number', 'width': 200, 'height': 24" + keys +
             "}, {'class': 'TextButton', 'name': 'ok', 'default': true, 'height': 20}");
        number = &get<NumberField>("number");
        noteActivations("number", [this] { return numberText(number->value(), 3, false); });
    }

    std::string text() const { return get<nui::TextField>("field").getText(); }

    void type(const std::string& typed)
    {
        focus("field");
        get<nui::TextField>("field").selectAll();
        toolkit.type(typed);
    }

    NumberField* number = nullptr;
};

TEST_F(number_field_test, what_is_typed_counts_when_it_is_committed)
{
    openField(", 'value': 1, 'decimals': 2");
    EXPECT_EQ(text(), "1.00");
    type("2.345");
    EXPECT_EQ(number->value(), 1);
    noteActivations("ok", [this] { return "ok with " + text(); });
    toolkit.key(SDLK_RETURN);
    EXPECT_EQ(taken(), "2.350 ok with 2.35 ") << "rounded to what is shown";
    type("7");
    toolkit.key(SDLK_TAB);
    EXPECT_EQ(taken(), "7.000 ");
    EXPECT_EQ(text(), "7.00");
    type("7,00");
    toolkit.key(SDLK_TAB);
    EXPECT_EQ(taken(), "") << "an equal number";
    EXPECT_EQ(text(), "7.00");
}

TEST_F(number_field_test, the_field_hands_the_keyboard_on_to_its_text)
{
    openField(", 'value': 3");
    focus("number");
    toolkit.key(SDLK_UP);
    EXPECT_EQ(number->value(), 4);
}

TEST_F(number_field_test, what_is_no_number_is_taken_back)
{
    openField(", 'value': 0.123, 'decimals': 1, 'unit': 'mm'");
    for (const char* const typed : {"abc", "", "1 2"}) {
        type(typed);
        toolkit.key(SDLK_RETURN);
        EXPECT_EQ(text(), "0.1");
    }
    type("5");
    toolkit.key(SDLK_ESCAPE);
    EXPECT_EQ(text(), "0.1");
    EXPECT_FLOAT_EQ(number->value(), 0.123F) << "nobody has changed it";
    type("5 mm");
    toolkit.key(SDLK_RETURN);
    EXPECT_EQ(taken(), "5.000 ") << "with its unit";
}

TEST_F(number_field_test, values_stay_within_the_limits)
{
    openField(", 'minimum': -1, 'maximum': 10, 'value': 99");
    EXPECT_EQ(text(), "10");
    type("-5");
    toolkit.key(SDLK_RETURN);
    EXPECT_EQ(taken(), "-1.000 ");
    number->setValue(NAN);
    number->setValue(-7);
    EXPECT_EQ(number->value(), -1);
    number->setRange(4, 2);
    EXPECT_EQ(text(), "4");
    EXPECT_EQ(taken(), "") << "the program raises nothing";
}

TEST_F(number_field_test, an_equal_value_of_the_program_leaves_what_is_being_typed)
{
    openField(", 'value': 3");
    type("45");
    number->setValue(3);
    EXPECT_EQ(text(), "45");
    number->setValue(4);
    EXPECT_EQ(text(), "4");
}

TEST_F(number_field_test, keys_and_the_wheel_step)
{
    openField(", 'step': 0.5, 'decimals': 1, 'maximum': 6");
    moveTo(*number);
    toolkit.wheel(1);
    EXPECT_EQ(taken(), "") << "without the keyboard it scrolls what is around";
    focus("field");
    toolkit.keys({SDLK_UP, SDLK_PAGEUP, SDLK_PAGEUP, SDLK_DOWN});
    toolkit.wheel(-2);
    EXPECT_EQ(taken(), "0.500 5.500 6.000 5.500 4.500 ");
    type("1");
    toolkit.key(SDLK_UP);
    EXPECT_EQ(taken(), "1.000 1.500 ") << "what was typed comes first";
    number->setEnabled(false);
    toolkit.key(SDLK_UP);
    EXPECT_EQ(taken(), "");
}

TEST_F(number_field_test, an_arrow_that_is_held_steps_on)
{
    openField();
    const nui::Widget& arrows = *number->children().back();
    moveTo(arrows, 0, -arrows.height / 4);
    toolkit.press();
    EXPECT_EQ(taken(), "1.000 ");
    EXPECT_EQ(focused(), "field");
    for (int frames = 0; frames < 7; ++frames)
        toolkit.frame();
    EXPECT_EQ(taken(), "2.000 3.000 4.000 5.000 ") << "after 400 ms, and then with each frame";
    toolkit.release();
    for (int frames = 0; frames < 7; ++frames)
        toolkit.frame();
    moveTo(arrows, 0, arrows.height / 4);
    toolkit.press();
    EXPECT_EQ(taken(), "4.000 ");
}

TEST_F(number_field_test, decimals_are_written_as_the_language_does)
{
    openField(", 'value': 1.5, 'decimals': 1");
    engine().lang->languageCode = "de";
    number->reloadText();
    EXPECT_EQ(text(), "1,5");
    type("2.5");
    toolkit.key(SDLK_RETURN);
    EXPECT_EQ(text(), "2,5");
}

TEST_F(number_field_test, a_clone_has_a_number_of_its_own)
{
    openField(", 'value': 3");
    const auto copy = addClone(*number);
    engine().setFocus(copy->findByName("field")->shared_from_this());
    toolkit.key(SDLK_UP);
    EXPECT_EQ(copy->value(), 4);
    EXPECT_EQ(number->value(), 3);
}

} // namespace
