#pragma once

#include "nui/engine/screen_table.h"

#include <string>

namespace nrd::tools::preview {

/// Draws the window's contents and writes them as PNG. Throws a failure that names the file.
void write_picture(const nui::ScreenPtr& screen, const std::string& file);

} // namespace nrd::tools::preview
