#pragma once

#include "nui/events/widget_events.h"

#include <string>

// What lists and rows are made of: clones of templates, each with a text.

namespace nui {

class TextLabel;

/// A clone that comes back to the template's looks after a press.
[[nodiscard]] WidgetPtr itemOf(const WidgetPtr& source);

/// The widget itself, or the first label below it; null if there is none.
[[nodiscard]] TextLabel* labelIn(Widget& widget);

/// The language's text, or the key itself where there is none.
[[nodiscard]] std::string translated(const std::string& key);

} // namespace nui
