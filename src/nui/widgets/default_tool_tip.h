#pragma once

#include "nui/widgets/text_label.h"

namespace nui {

/// The label that shows tool tips. It keeps itself on its screen.
class DefaultToolTip : public Cloneable<DefaultToolTip, TextLabel> {
public:
    [[nodiscard]] bool isOverlay() const override { return true; }
    void place() override;
    [[nodiscard]] const char* className() const override { return "DefaultToolTip"; }
};

} // namespace nui
