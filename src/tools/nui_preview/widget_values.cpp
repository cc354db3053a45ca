#include "tools/nui_preview/widget_values.h"

#include "nui/widgets/breadcrumbs.h"
#include "nui/widgets/drop_down.h"
#include "nui/widgets/image_array.h"
#include "nui/widgets/ip_address_field.h"
#include "nui/widgets/multi_state_button.h"
#include "nui/widgets/number_field.h"
#include "nui/widgets/progress_bar.h"
#include "nui/widgets/selectable_image.h"
#include "nui/widgets/selection_list.h"
#include "nui/widgets/slider.h"
#include "nui/widgets/toggle_button.h"

#include <cmath>

namespace nrd::tools::preview {

namespace {

using json = nlohmann::ordered_json;

json value_of(nui::Widget& widget)
{
    if (const auto* const bar = dynamic_cast<const nui::ProgressBar*>(&widget)) {
        return tree_number(bar->value());
    }
    if (const auto* const slider = dynamic_cast<const nui::Slider*>(&widget)) {
        return tree_number(slider->value());
    }
    if (const auto* const field = dynamic_cast<const nui::NumberField*>(&widget)) {
        return tree_number(field->value());
    }
    if (const auto* const field = dynamic_cast<const nui::IpAddressField*>(&widget)) {
        return field->address();
    }
    if (auto* const drop_down = dynamic_cast<nui::DropDown*>(&widget)) {
        return drop_down->selectedText();
    }
    return nullptr;
}

json state_of(nui::Widget& widget)
{
    if (const auto* const button = dynamic_cast<const nui::MultiStateButton*>(&widget)) {
        return button->state();
    }
    if (const auto* const images = dynamic_cast<const nui::ImageArray*>(&widget)) {
        return images->shown();
    }
    if (const auto* const button = dynamic_cast<const nui::ToggleButton*>(&widget)) {
        return button->isSelected() ? 1 : 0;
    }
    if (const auto* const image = dynamic_cast<const nui::SelectableImage*>(&widget)) {
        return image->isSelected() ? 1 : 0;
    }
    if (const auto* const list = dynamic_cast<const nui::SelectionList*>(&widget)) {
        return list->selection();
    }
    if (const auto* const list = dynamic_cast<const nui::ListBox*>(&widget)) {
        return list->current();
    }
    if (const auto* const drop_down = dynamic_cast<const nui::DropDown*>(&widget)) {
        return drop_down->selectedIndex();
    }
    if (const auto* const row = dynamic_cast<const nui::Breadcrumbs*>(&widget)) {
        return row->picked();
    }
    return nullptr;
}

} // namespace

json tree_number(float value)
{
    constexpr double decimals = 10000;
    const double rounded = std::round(static_cast<double>(value) * decimals) / decimals;
    const bool is_whole = rounded == std::trunc(rounded) && std::abs(rounded) < 1e9;
    return is_whole ? json(static_cast<int>(rounded)) : json(rounded);
}

void add_values(json& entry, nui::Widget& widget)
{
    if (json value = value_of(widget); !value.is_null()) {
        entry["value"] = std::move(value);
    }
    if (json state = state_of(widget); !state.is_null()) {
        entry["state"] = std::move(state);
    }
}

} // namespace nrd::tools::preview
