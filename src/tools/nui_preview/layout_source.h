#pragma once

#include "nui/engine/screen_table.h"
#include "tools/nui_preview/options.h"

#include <optional>
#include <string>
#include <vector>

namespace nrd::tools::preview {

/// What came of reading a layout file.
struct loaded_layout {
    nui::ScreenPtr screen;            ///< unopened; null if faults left nothing to show
    std::vector<std::string> faults;  ///< sentences
    std::vector<std::string> remarks; ///< sentences about what is passed over
    std::vector<std::string> files;   ///< the file and all that it includes
};

/// Reads the file and picks what is shown: its first Screen that has an id, else any Screen, else
/// its first widget in a Screen made for it. `size` fixes the window's size.
[[nodiscard]] loaded_layout load_layout(const std::string& file,
                                        const std::optional<window_size>& size);

} // namespace nrd::tools::preview
