#include "tools/nui_preview/widget_values.h"

#include "nui/engine/engine.h"
#include "nui/widgets/drop_down.h"
#include "nui/widgets/ip_address_field.h"
#include "nui/widgets/multi_state_button.h"
#include "nui/widgets/number_field.h"
#include "nui/widgets/selectable_image.h"
#include "nui/widgets/selection_list.h"
#include "nui/widgets/slider.h"
#include "nui/widgets/toggle_button.h"

#include <gtest/gtest.h>

namespace {

class widget_values_test : public testing::Test {
protected:
    widget_values_test() { nui::Engine::create(); }
    ~widget_values_test() override { nui::Engine::close(); }

    static std::string values_of(nui::Widget& widget)
    {
        auto entry = nlohmann::ordered_json::object();
        nrd::tools::preview::add_values(entry, widget);
        return entry.dump();
    }
};

TEST_F(widget_values_test, widgets_that_hold_a_value_or_a_state_tell_it)
{
    nui::Slider slider;
    slider.setValue(12.5F);
    EXPECT_EQ(values_of(slider), R"({"value":12.5})");
    nui::NumberField number;
    number.setValue(-3);
    EXPECT_EQ(values_of(number), R"({"value":-3})");
    nui::IpAddressField address;
    EXPECT_EQ(values_of(address), R"({"value":""})");
    nui::DropDown choice;
    EXPECT_EQ(values_of(choice), R"({"value":"","state":-1})");
    choice.setItems({"one", "two"});
    choice.select(1);
    EXPECT_EQ(values_of(choice), R"({"value":"two","state":1})");
    nui::MultiStateButton button;
    EXPECT_EQ(values_of(button), R"({"state":0})");
    nui::SelectableImage image;
    image.setSelected(true);
    EXPECT_EQ(values_of(image), R"({"state":1})");
    nui::ToggleButton toggle;
    EXPECT_EQ(values_of(toggle), R"({"state":0})");
    nui::ListBox list;
    EXPECT_EQ(values_of(list), R"({"state":-1})");
    nui::SelectionList several;
    several.setItems({"one", "two", "three"});
    several.setSelection({0, 2});
    EXPECT_EQ(values_of(several), R"({"state":[0,2]})");
    nui::Container plain;
    EXPECT_EQ(values_of(plain), "{}");
}

} // namespace
