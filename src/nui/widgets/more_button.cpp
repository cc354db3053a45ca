#include "nui/widgets/more_button.h"

#include "nui/draw/drawing.h"
#include "nui/reader/nui_reader.h"
#include "nui/widgets/click_rule.h"
#include "nui/widgets/control_looks.h"

#include <algorithm>
#include <cmath>

namespace nui {

MoreButton::MoreButton()
{
    armClickRule(*this);
}

bool MoreButton::read(NuiReader& reader)
{
    Image::read(reader);
    reader.readTemplateRef(popup, "popup");
    reader.readTemplateRef(separatorReplacement, "separatorReplacement");
    return true;
}

void MoreButton::drawContent()
{
    fadeIfDisabled(*this);
    if (texture != nullptr) {
        Image::drawContent();
        return;
    }
    setColor(control_color::Ink, drawAlpha);
    const float size = std::max(1.0F, std::floor(std::min(width, height) / 8));
    const float top = std::round(y + (height - size) / 2);
    const float middle = std::round(x + (width - size) / 2);
    for (const float step : {-2.0F, 0.0F, 2.0F})
        fillRect(middle + step * size, top, size, size);
}

} // namespace nui
