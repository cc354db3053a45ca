#pragma once

#include "nui/widgets/screen.h"

namespace nrd::shared::ui {

/// Lets the keyboard be of use in a window in which nothing has it, as after a click on an empty
/// place: Tab goes to the first item of the form that is shown, Return activates what Return in
/// that form does.
void letKeysBegin(nui::Screen& screen);

} // namespace nrd::shared::ui
