#include "shared/ui/bindable_number_fields.h"

#include "bind/property.h"
#include "nui/reader/nui_reader.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace nrd::shared::ui {

namespace {

struct display_unit {
    std::string_view name;
    double scale; ///< metres
};

constexpr std::array DisplayUnits = {
    display_unit{"mm", 0.001},  display_unit{"cm", 0.01},        display_unit{"dm", 0.1},
    display_unit{"m", 1},       display_unit{"in", 0.0254},      display_unit{"\"", 0.0254},
    display_unit{"ft", 0.3048}, display_unit{"pt", 0.0254 / 72},
};

double scaleOf(std::string_view unitName)
{
    const auto* const found =
        std::find_if(DisplayUnits.begin(), DisplayUnits.end(),
                     [unitName](const display_unit& each) { return each.name == unitName; });
    return found == DisplayUnits.end() ? DisplayUnits.front().scale : found->scale;
}

/// Answers whether the field has made another value of it.
bool isChangedBy(nui::NumberField& field, float value)
{
    field.setValue(value);
    return !nrd::bind::isSameValue(field.value(), value);
}

} // namespace

void bindable_number_field::setWidgetValue(const float& value)
{
    if (isChangedBy(*this, value))
        pushValue();
}

void bindable_number_field_length::setWidgetValue(const millimetres& value)
{
    if (isChangedBy(*this, static_cast<float>(value.in(scaleOf(shownUnit())))))
        pushValue();
}

millimetres bindable_number_field_length::getWidgetValue()
{
    return millimetres::from(static_cast<double>(value()), scaleOf(shownUnit()));
}

void bindable_number_field_custom::setWidgetValue(const float& value)
{
    if (isChangedBy(*this, value * factor))
        pushValue();
}

bool bindable_number_field_custom::read(nui::NuiReader& reader)
{
    NumberField::read(reader);
    float read = factor;
    if (reader.readFloat(read, "factor") && read == 0)
        reader.reportFault(nui::LayoutFault::Kind::UnknownValue, "0", "factor");
    else
        factor = read;
    return true;
}

void bindable_number_field_custom::handlePush(nui::WidgetEvent& event)
{
    pushValue();
    event.stop(nui::stop_level::Swallow);
}

} // namespace nrd::shared::ui
