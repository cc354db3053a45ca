#pragma once

#include "inst/installation/spec.h"

#include <string_view>

namespace nrd::vs_installer {

/// Names of the wizard's classes in layout files, in the order in which register_widgets() takes
/// them.
constexpr std::string_view widget_names =
    "bindable_number_field, bindable_number_field_length, bindable_number_field_custom, "
    "bindable_checkbox, bindable_integer_textfield, bindable_textfield, bindable_textlabel, "
    "bindable_radio_button, bindable_radio_button_string, bindable_dropdown, "
    "bindable_multi_state_button, dialog, bindable_progress_bar, installer_window, welcome_tab, "
    "installing_tab, end_tab";

/// Makes the classes known to the toolkit's reader. The pages' models are made on first need, from
/// `specs`; each exists once, and until the process ends. Once, on the main thread. Throws
/// std::invalid_argument if there is not one name for each class.
void register_widgets(const installation::specs& specs, std::string_view names);

} // namespace nrd::vs_installer
