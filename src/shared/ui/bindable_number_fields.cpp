#include "shared/ui/bindable_number_fields.h"

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

} // namespace

void bindable_number_field_length::setWidgetValue(const millimetres& value)
{
    setValue(static_cast<float>(value.in(scaleOf(unit()))));
}

millimetres bindable_number_field_length::getWidgetValue()
{
    return millimetres::from(static_cast<double>(value()), scaleOf(unit()));
}

bool bindable_number_field_custom::read(nui::NuiReader& reader)
{
    NumberField::read(reader);
    reader.readFloat(factor, "factor");
    return true;
}

void bindable_number_field_custom::handlePush(nui::WidgetEvent& event)
{
    pushValue();
    event.stop(nui::stop_level::Swallow);
}

} // namespace nrd::shared::ui
