#pragma once

#include "nui/widgets/image.h"

namespace nui {

/// A picture that has another one, a template's, while it is selected.
class SelectableImage : public Cloneable<SelectableImage, Image> {
public:
    void drawContent() override;
    bool read(NuiReader& reader) override;
    [[nodiscard]] const char* className() const override { return "SelectableImage"; }

    [[nodiscard]] bool isSelected() const { return selected_; }
    void setSelected(bool selected) { selected_ = selected; }

private:
    WidgetPtr selectedTemplate_;
    bool selected_ = false;
};

} // namespace nui
