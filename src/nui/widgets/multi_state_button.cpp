#include "nui/widgets/multi_state_button.h"

#include "nui/events/dispatch.h"
#include "nui/reader/nui_reader.h"
#include "nui/widgets/click_rule.h"
#include "nui/widgets/control_looks.h"
#include "nui/widgets/image_array.h"

namespace nui {

MultiStateButton::MultiStateButton()
{
    childrenTouch = false;
    subscribe(*this, touch::Press, captureLeftPress, nullptr);
    subscribe(*this, touch::Release, onRelease, static_cast<Widget*>(this));
}

bool MultiStateButton::read(NuiReader& reader)
{
    Container::read(reader);
    if (reader.readString(imageName_, "image", true) && !imageName_.empty())
        reportMissingImages(reader);
    return true;
}

void MultiStateButton::reportMissingImages(NuiReader& reader) const
{
    const ImageArray* const array = images();
    if (array == nullptr)
        reader.reportFault(LayoutFault::Kind::MissingWidget, imageName_, "image");
    else if (array->count() == 0)
        reader.reportFault(LayoutFault::Kind::NoImages, imageName_, "image");
}

ImageArray* MultiStateButton::images() const
{
    return imageName_.empty() ? nullptr : dynamic_cast<ImageArray*>(findChild(imageName_).get());
}

std::size_t MultiStateButton::state() const
{
    const ImageArray* const array = images();
    return array == nullptr ? 0 : array->shown();
}

void MultiStateButton::setState(std::size_t state)
{
    if (ImageArray* const array = images())
        array->show(state);
}

void MultiStateButton::drawContent()
{
    fadeIfDisabled(*this);
}

void MultiStateButton::step()
{
    const ImageArray* const array = images();
    if (array != nullptr && array->count() != 0)
        setState((state() + 1) % array->count());
}

void MultiStateButton::onRelease(WidgetEvent& event)
{
    if (!endsClick(event))
        return;
    static_cast<MultiStateButton&>(*static_cast<Widget*>(event.user)).step();
    raiseClick(event);
}

} // namespace nui
