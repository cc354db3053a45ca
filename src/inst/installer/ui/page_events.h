#pragma once

#include "nui/widgets/container.h"

#include <string>

// What the wizard's pages have to do with the container that shows them.

namespace nrd::installer::ui {

/// Whether the pages container has just brought the event's target to the front. Clicks that
/// bubble up from a page's buttons have the same type.
[[nodiscard]] bool tells_of_showing(const nui::WidgetEvent& event);

/// Brings another page to the front. Throws missing_widget for a page outside a container of
/// pages.
void show_page(nui::Widget& from, const std::string& name);

/// Gives the keyboard to a widget of a page, or has it wait there until the window gets it.
void focus(nui::Widget& widget);

} // namespace nrd::installer::ui
