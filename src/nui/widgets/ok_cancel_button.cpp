#include "nui/widgets/ok_cancel_button.h"

#include "nui/widgets/text_button.h"

namespace nui {

OkCancelButton::OkCancelButton(const OkCancelButton& other)
    : Cloneable<OkCancelButton, Container>(other)
{
    findParts();
}

OkCancelButton& OkCancelButton::operator=(const OkCancelButton& other)
{
    if (this != &other) {
        Container::operator=(other);
        findParts();
    }
    return *this;
}

bool OkCancelButton::read(NuiReader& reader)
{
    Container::read(reader);
    findParts();
    return true;
}

void OkCancelButton::findParts()
{
    okButton_ = dynamic_cast<TextButton*>(findByName("ok_button"));
    cancelButton_ = dynamic_cast<TextButton*>(findByName("cancel_button"));
    separator_ = findByName("button_seperator"); // in the spelling that layout files have
}

} // namespace nui
