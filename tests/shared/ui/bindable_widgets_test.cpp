#include "bind/property.h"
#include "nui/events/dispatch.h"
#include "shared/ui/bindable_classes.h"
#include "shared/ui/bindable_dropdown.h"
#include "shared/ui/bindable_number_fields.h"
#include "shared/ui/bindable_progress_bar.h"
#include "shared/ui/bindable_states.h"
#include "shared/ui/bindable_text.h"
#include "support/nui/control_test.h"

#include <SDL_keycode.h>
#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <stdexcept>
#include <string>

namespace {

using namespace nrd::shared::ui;
using nrd::bind::delegate;
using nrd::bind::property;

class bindable_widgets_test : public nui::test::ControlTest {
protected:
    bindable_widgets_test()
    {
        registerBindableClasses();
        pictures.write("off.png", "k\n");
        pictures.write("on.png", "w\n");
    }

    /// A widget of the class, 60 by 20, with more keys.
    static std::string widget(const std::string& className, const std::string& name,
                              const std::string& keys = "")
    {
        return "{'class': '" + className + "', 'id': '" + name + "', 'name': '" + name +
               "', 'width': 60, 'height': 20" + (keys.empty() ? "" : ", " + keys) + "},";
    }

    static std::string button(const std::string& className, const std::string& name)
    {
        return widget(className, name,
                      "'image': 'picture', 'children': [{'class': 'ImageArray', 'name': "
                      "'picture', 'files': ['off', 'on']}]");
    }

    /// One that ends the list of children.
    void openAll(std::string children)
    {
        children.pop_back();
        open(children);
    }
};

TEST_F(bindable_widgets_test, a_field_shows_the_model_and_gives_it_each_keystroke)
{
    openAll(widget("bindable_textfield", "field") + widget("bindable_textlabel", "label"));
    property<std::string> path("abc");
    auto& field = get<bindable_textfield>("field");
    field.bind(delegate(path));
    get<bindable_textlabel>("label").bind(delegate(path));
    EXPECT_EQ(field.getText(), "abc");
    EXPECT_EQ(path.boundName, "label") << "the one that was bound last";
    path.set("C:\\x");
    EXPECT_EQ(field.getText(), "C:\\x");

    std::string heard;
    const auto link = path.changed.connect([&] { heard += path.get() + " "; });
    focus("field");
    toolkit.key(SDLK_END);
    toolkit.type("y");
    toolkit.key(SDLK_BACKSPACE);
    EXPECT_EQ(heard, "C:\\xy C:\\x ");
    EXPECT_EQ(field.caret(), 4) << "the echo leaves the caret";
    toolkit.type("z");
    EXPECT_EQ(get<bindable_textlabel>("label").getText(), "C:\\xz");
}

TEST_F(bindable_widgets_test, an_integer_field_throws_for_what_is_no_int)
{
    openAll(widget("bindable_integer_textfield", "field"));
    property<int> number(-7);
    auto& field = get<bindable_integer_textfield>("field");
    field.bind(delegate(number));
    EXPECT_EQ(field.getText(), "-7");
    field.setText(" 12 pieces");
    EXPECT_EQ(number.get(), -7) << "pushes on activation only";
    nui::send(field, nui::plain_event::Activate);
    EXPECT_EQ(number.get(), 12);

    const auto fault = [&field](const std::string& text) -> std::string {
        field.setText(text);
        try {
            field.pushValue();
        } catch (const std::logic_error& error) {
            return error.what();
        }
        return "none";
    };
    EXPECT_EQ(fault(""), "invalid stoi argument");
    EXPECT_EQ(fault("2147483648"), "stoi argument out of range");
    EXPECT_EQ(fault("2147483647"), "none");
    EXPECT_EQ(number.get(), std::numeric_limits<int>::max());
}

TEST_F(bindable_widgets_test, buttons_with_states_are_flags)
{
    openAll(button("bindable_checkbox", "box") + button("bindable_radio_button", "radio") +
            button("bindable_multi_state_button", "states"));
    property<bool> flag(true);
    auto& box = get<bindable_checkbox>("box");
    box.bind(delegate(flag));
    get<bindable_radio_button>("radio").bind(delegate(flag));
    get<bindable_multi_state_button>("states").bind(delegate(flag));
    EXPECT_EQ(box.state(), 1U);
    for (const char* const name : {"box", "radio", "states"}) {
        const bool before = flag.get();
        click(name);
        EXPECT_EQ(flag.get(), !before) << name;
        EXPECT_EQ(box.state() != 0, !before) << name;
    }
}

TEST_F(bindable_widgets_test, radio_buttons_of_one_text_are_a_group)
{
    openAll(button("bindable_radio_button_string", "metric") +
            button("bindable_radio_button_string", "imperial"));
    property<std::string> system("imperial");
    auto& first = get<bindable_radio_button_string>("metric");
    auto& second = get<bindable_radio_button_string>("imperial");
    first.bind(delegate(system));
    second.bind(delegate(system));
    const auto states = [&] {
        return std::to_string(first.state()) + std::to_string(second.state());
    };
    EXPECT_EQ(states(), "01");
    click("metric");
    EXPECT_EQ(system.get() + states(), "metric10");
    click("metric");
    EXPECT_EQ(system.get() + states(), "metric10") << "a second click leaves it on";
    system.set("neither");
    EXPECT_EQ(states(), "00");
}

TEST_F(bindable_widgets_test, number_fields_show_numbers_lengths_and_multiples)
{
    openAll(widget("bindable_number_field", "plain", "'decimals': 1") +
            widget("bindable_number_field_length", "length", "'unit': 'cm', 'decimals': 2") +
            widget("bindable_number_field_custom", "custom", "'factor': 10"));
    property<float> plain(2.5F);
    property<millimetres> length(millimetres(25));
    property<float> custom(2);
    auto& multiple = get<bindable_number_field_custom>("custom");
    get<bindable_number_field>("plain").bind(delegate(plain));
    get<bindable_number_field_length>("length").bind(delegate(length));
    multiple.bind(delegate(custom));
    EXPECT_FLOAT_EQ(get<bindable_number_field>("plain").value(), 2.5F);
    EXPECT_FLOAT_EQ(get<bindable_number_field_length>("length").value(), 2.5F);
    EXPECT_FLOAT_EQ(multiple.value(), 20);

    get<bindable_number_field>("plain").stepBy(1);
    get<bindable_number_field_length>("length").stepBy(1);
    EXPECT_FLOAT_EQ(plain.get(), 3.5F);
    EXPECT_NEAR(length.get().value(), 35, 1e-6);

    noteActivations("custom", [] { return "heard"; });
    multiple.stepBy(10);
    EXPECT_FLOAT_EQ(custom.get(), 3);
    EXPECT_FLOAT_EQ(multiple.value(), 30);
    EXPECT_EQ(taken(), "") << "the undivided value is nobody else's";
}

TEST_F(bindable_widgets_test, what_a_number_field_makes_of_a_value_goes_back_to_the_model)
{
    openAll(widget("bindable_number_field", "plain", "'maximum': 100") +
            widget("bindable_number_field_length", "length", "'unit': 'in', 'maximum': 2") +
            widget("bindable_number_field_custom", "custom", "'maximum': 5, 'factor': 10"));
    property<float> plain(200);
    property<millimetres> length(millimetres(25.4));
    property<float> custom(2);
    get<bindable_number_field>("plain").bind(delegate(plain));
    get<bindable_number_field_length>("length").bind(delegate(length));
    get<bindable_number_field_custom>("custom").bind(delegate(custom));
    EXPECT_FLOAT_EQ(plain.get(), 100);
    EXPECT_EQ(length.get(), millimetres(25.4));
    length.set(millimetres(254));
    EXPECT_NEAR(length.get().value(), 50.8, 1e-6);
    EXPECT_FLOAT_EQ(custom.get(), 0.5F);
}

TEST_F(bindable_widgets_test, the_models_hear_of_return_before_the_default_button_does)
{
    openAll(widget("bindable_integer_textfield", "field") +
            "{'class': 'TextButton', 'name': 'ok', 'width': 60, 'height': 20, 'default': true},");
    property<int> number(80);
    get<bindable_integer_textfield>("field").bind(delegate(number));
    noteActivations("ok", [&number] { return std::to_string(number.get()); });
    focus("field");
    get<bindable_integer_textfield>("field").setText("81");
    toolkit.key(SDLK_RETURN);
    EXPECT_EQ(taken(), "81 ");
}

TEST_F(bindable_widgets_test, a_drop_down_without_a_choice_leaves_the_model_alone)
{
    openAll(widget("bindable_dropdown", "list", "'items': ['one', 'two']"));
    property<std::string> choice("four");
    get<bindable_dropdown>("list").bind(delegate(choice));
    click("list");
    EXPECT_EQ(choice.get(), "four");
}

TEST_F(bindable_widgets_test, a_drop_down_is_bound_to_a_text)
{
    openAll(widget("bindable_dropdown", "list", "'items': ['one', 'two', 'three']"));
    property<std::string> choice("two");
    auto& list = get<bindable_dropdown>("list");
    list.bind(delegate(choice));
    EXPECT_EQ(list.selectedIndex(), 1);
    choice.set("four");
    EXPECT_EQ(list.selectedIndex(), 1) << "no item has this text";
    focus("list");
    toolkit.key(SDLK_DOWN);
    EXPECT_EQ(choice.get(), "three");
    list.select(0);
    toolkit.key(SDLK_F5);
    EXPECT_EQ(choice.get(), "three") << "of the keys only up and down push";
    click("list"); // and lets go of it
    EXPECT_EQ(choice.get(), "one");
}

TEST_F(bindable_widgets_test, progress_without_an_end_reaches_the_bar_and_goes_again)
{
    openAll(widget("bindable_progress_bar", "bar"));
    property<float> progress(0);
    auto& bar = get<bindable_progress_bar>("bar");
    bar.bind(delegate(progress));
    progress.set(std::numeric_limits<float>::infinity());
    EXPECT_FLOAT_EQ(bar.value(), std::numeric_limits<float>::infinity());
    progress.set(1);
    EXPECT_FLOAT_EQ(bar.value(), 1);
}

TEST_F(bindable_widgets_test, most_push_only_once_their_screen_has_a_window)
{
    property<float> progress(0.25F);
    property<bool> flag(false);
    const auto bar = std::make_shared<bindable_progress_bar>();
    const auto box = std::make_shared<bindable_checkbox>();
    bar->bind(delegate(progress));
    box->bind(delegate(flag));
    bar->setValue(0.5F);
    nui::send(*bar, nui::plain_event::Activate);
    EXPECT_FLOAT_EQ(progress.get(), 0.25F);
    nui::send(*bar, nui::plain_event::WindowOpening);
    nui::send(*bar, nui::plain_event::Activate);
    EXPECT_FLOAT_EQ(progress.get(), 0.5F);

    flag.set(true); // the box has no picture to show it
    nui::send(*box, nui::plain_event::Activate);
    EXPECT_FALSE(flag.get());
}

TEST_F(bindable_widgets_test, a_clone_is_bound_to_the_same_property_and_pushes_for_itself)
{
    openAll(widget("bindable_textfield", "field"));
    property<std::string> text("a");
    auto& field = get<bindable_textfield>("field");
    field.bind(delegate(text));
    const nui::WidgetPtr copy = field.clone();
    auto& clone = dynamic_cast<bindable_textfield&>(*copy);
    text.set("b");
    EXPECT_EQ(clone.getText(), "b");
    clone.insertText("c");
    EXPECT_EQ(text.get(), "cb");
    EXPECT_EQ(field.getText(), "cb");
    open("{'class': 'bindable_number_field_custom', 'name': 'custom', 'factor': 4}");
    const nui::WidgetPtr scaled = find("custom")->clone();
    EXPECT_FLOAT_EQ(dynamic_cast<bindable_number_field_custom&>(*scaled).factor, 4);
    clone.setWidgetEnabled(false);
    EXPECT_TRUE(field.touchEnabled);
    EXPECT_FALSE(clone.touchEnabled);
}

} // namespace
