#pragma once

#include "nui/widgets/image.h"

namespace nui {

/// Opens what Breadcrumbs has no room for. Draws three dots while it has no picture.
class MoreButton : public Cloneable<MoreButton, Image> {
public:
    MoreButton();

    void drawContent() override;
    bool read(NuiReader& reader) override;
    [[nodiscard]] const char* className() const override { return "MoreButton"; }

    WidgetPtr popup;                ///< what the list of hidden parts looks like; may be null
    WidgetPtr separatorReplacement; ///< stands between the button and the first part; may be null
};

} // namespace nui
