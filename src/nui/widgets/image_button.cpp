#include "nui/widgets/image_button.h"

#include "nui/reader/nui_reader.h"
#include "nui/widgets/click_rule.h"
#include "nui/widgets/control_looks.h"

namespace nui {

ImageButton::ImageButton()
{
    armClickRule(*this);
    armKeyboardRule(*this);
}

void ImageButton::drawContent()
{
    fadeIfDisabled(*this);
    Image::drawContent();
    drawFocusFrame(*this);
}

bool ImageButton::read(NuiReader& reader)
{
    Image::read(reader);
    reader.readBool(isDefault, "default");
    return true;
}

} // namespace nui
