#pragma once

#include <nlohmann/json.hpp>

namespace nui {
class Widget;
} // namespace nui

namespace nrd::tools::preview {

/// Whole where it is so, else with four decimals: beyond them processors differ.
[[nodiscard]] nlohmann::ordered_json tree_number(float value);

/// The keys `value` and `state` of a widget that has them. The value is what the widget is for:
/// a number, an address, the selected text. The state is the index of what is shown or selected,
/// -1 for nothing; 0 or 1 for what is on or off; a list of indices where several are selected.
void add_values(nlohmann::ordered_json& entry, nui::Widget& widget);

} // namespace nrd::tools::preview
