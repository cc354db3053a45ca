#pragma once

#include "nui/widgets/widget.h"

#include <nlohmann/json.hpp>

namespace nrd::tools::preview {

/// The widget and all below it. Positions are those on the window as drawn last; what was not
/// drawn has the place that the layout gave it.
[[nodiscard]] nlohmann::ordered_json tree_of(nui::Widget& widget);

/// The same as the text of a file.
[[nodiscard]] std::string tree_text(nui::Widget& widget);

} // namespace nrd::tools::preview
