#pragma once

#include "nui/widgets/form.h"
#include "nui/widgets/image.h"

namespace nui {

/// A picture that is clicked, by pointer or keyboard.
class ImageButton : public Cloneable<ImageButton, Image>, public FormItem {
public:
    ImageButton();

    void drawContent() override;
    bool read(NuiReader& reader) override;
    [[nodiscard]] const char* className() const override { return "ImageButton"; }
};

} // namespace nui
