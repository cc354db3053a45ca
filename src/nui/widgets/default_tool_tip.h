#pragma once

#include "nui/widgets/text_label.h"

namespace nui {

/// The label that shows tool tips, in colours of its own and as large as its text unless a layout
/// file says otherwise. It keeps itself on its screen.
class DefaultToolTip : public Cloneable<DefaultToolTip, TextLabel> {
public:
    DefaultToolTip();

    [[nodiscard]] bool isOverlay() const override { return true; }
    void measure() override;
    void place() override;
    [[nodiscard]] const char* className() const override { return "DefaultToolTip"; }
};

} // namespace nui
