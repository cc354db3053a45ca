#pragma once

#include <string>

namespace nui::test {

/// The colour of a pixel of the current window, y down, as "rrggbb"; "outside" beyond it.
[[nodiscard]] std::string pixelAt(int x, int y);

/// A rectangle of pixels as a picture: one line of text for each row and one letter for each
/// pixel, which `letters` gives in pairs "rrggbb=x"; '?' stands for any other colour.
[[nodiscard]] std::string pixelRows(int x, int y, int width, int height,
                                    const std::string& letters);

} // namespace nui::test
