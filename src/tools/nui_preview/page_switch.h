#pragma once

#include "nui/widgets/screen.h"

#include <string>

namespace nrd::tools::preview {

/// Brings the page of that name to the front of its siblings; false if there is none.
bool switch_to_page(nui::Screen& screen, const std::string& name);

} // namespace nrd::tools::preview
