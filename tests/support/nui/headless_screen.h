#pragma once

#include "nui/engine/window_handle.h"

namespace nui::test {

/// A hidden window that GL draws into: one unit is one pixel, y down, all black. Windows of later
/// objects draw with the same context, so textures stay.
class HeadlessScreen {
public:
    explicit HeadlessScreen(int width = 40, int height = 30);

    /// Black again, and the state that frames start from.
    void clear();

    WindowHandle window;
};

} // namespace nui::test
