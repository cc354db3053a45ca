#include "nui/widgets/widget.h"

#include "nui/draw/drawing.h"
#include "nui/events/dispatch.h"
#include "nui/reader/nui_reader.h"
#include "nui/widgets/screen.h"

#include <array>
#include <cmath>
#include <utility>

namespace nui {

namespace {

std::unique_ptr<StateTemplates> copyOf(const std::unique_ptr<StateTemplates>& templates)
{
    return templates ? std::make_unique<StateTemplates>(*templates) : nullptr;
}

} // namespace

Widget::Widget(const Widget& other) : std::enable_shared_from_this<Widget>(other)
{
    *this = other;
    parent = other.parent;
    listeners_ = other.listeners_;
}

Widget& Widget::operator=(const Widget& other)
{
    if (this == &other)
        return *this;
    margin = other.margin;
    color = other.color;
    borderColor = other.borderColor;
    topColor = other.topColor;
    rightColor = other.rightColor;
    bottomColor = other.bottomColor;
    leftColor = other.leftColor;
    backgroundColor = other.backgroundColor;
    widthMode = other.widthMode;
    heightMode = other.heightMode;
    visibility = other.visibility;
    gravity = other.gravity;
    alignment = other.alignment;
    widthValue = other.widthValue;
    heightValue = other.heightValue;
    stateTemplates = copyOf(other.stateTemplates);
    x = other.x;
    y = other.y;
    localX = other.localX;
    localY = other.localY;
    width = other.width;
    height = other.height;
    maxWidth = other.maxWidth;
    maxHeight = other.maxHeight;
    offsetX = other.offsetX;
    offsetY = other.offsetY;
    alpha = other.alpha;
    serial = other.serial;
    id = other.id;
    name = other.name;
    toolTip = other.toolTip;
    drawAlpha = other.drawAlpha;
    touchEnabled = other.touchEnabled;
    return *this;
}

void Widget::drawChildren(Point /*position*/) {}

bool Widget::layout(std::uint32_t /*flags*/)
{
    return measureUnknown();
}

bool Widget::measureUnknown()
{
    if (isToBeMeasured())
        measure();
    return width >= 0 && height >= 0;
}

bool Widget::isToBeMeasured() const
{
    if (visibility == visibility::Collapsed)
        return false;
    // Measuring one axis may rest on the other, so an axis is measured by content only when the
    // other one is known or is measured along with it.
    const bool widthUnknown = widthMode == Content && width < 0;
    const bool heightUnknown = heightMode == Content && height < 0;
    return (widthUnknown && height >= 0) || (heightUnknown && width >= 0) ||
           (widthUnknown && heightUnknown);
}

bool Widget::readOverrides(NuiReader& reader, bool /*skipSelf*/)
{
    if (name.empty())
        return true;
    reader.setPrefix(name + ".");
    const bool answer = read(reader);
    reader.setPrefix("");
    return answer;
}

void Widget::applyTemplate(const Widget* look)
{
    if (look == nullptr)
        return;
    backgroundColor = look->backgroundColor;
    borderColor = look->borderColor;
    topColor = look->topColor;
    rightColor = look->rightColor;
    bottomColor = look->bottomColor;
    leftColor = look->leftColor;
    color = look->color;
    serial = look->serial;
}

Widget* Widget::findUp(const std::string& wanted)
{
    for (Widget* widget = this; widget != nullptr; widget = widget->parent) {
        if (Widget* const found = widget->findByName(wanted))
            return found;
    }
    return nullptr;
}

Widget* Widget::findByName(const std::string& wanted)
{
    return name == wanted ? this : nullptr;
}

WidgetPtr Widget::cloneObject() const
{
    return std::make_shared<Widget>(*this);
}

WidgetPtr Widget::clone() const
{
    WidgetPtr copy = cloneObject();
    copy->id.clear();
    copy->parent = nullptr;
    if (listeners_) {
        copy->listeners_ = std::make_shared<ListenerList>(*listeners_);
        // The list keeps users as they were subscribed, which is never as pointers to const.
        copy->listeners_->replaceSender(const_cast<Widget*>(this), copy.get());
    }
    return copy;
}

void Widget::broadcast(WidgetEvent& event)
{
    dispatch(*this, event, Phase::AtTarget);
}

void Widget::setEnabled(bool enabled)
{
    if (touchEnabled == enabled)
        return;
    touchEnabled = enabled;
    resetState();
}

void Widget::resetState()
{
    if (!stateTemplates)
        return;
    const bool showDisabled = !isChainEnabled() && stateTemplates->disabled;
    applyTemplate(showDisabled ? stateTemplates->disabled.get() : stateTemplates->normal.get());
}

void Widget::draw(Point position, float inheritedAlpha)
{
    // std::round rounds halves away from zero, which is what keeps mirrored layouts mirrored.
    x = std::round(localX + position.x);
    y = std::round(localY + position.y);
    if (!isDrawn() || !(width > 0) || !(height > 0))
        return;
    drawAlpha = inheritedAlpha * alpha;
    const bool clips = (visibility & visibility::Clips) != 0;
    const Rect outerClip = getClip();
    if (clips)
        intersectClip(pixelRect(x, y, width, height));
    if (alphaOf(backgroundColor) != 0) {
        setColor(backgroundColor, drawAlpha);
        fillRect(x, y, width, height);
    }
    drawContent();
    drawChildren(position);
    drawBorder();
    if (clips)
        setClip(outerClip);
}

void Widget::drawBorder() const
{
    // Lines run through the centres of pixels, else they would be smeared over two rows.
    const float left = x + 0.5F;
    const float top = y + 0.5F;
    const float right = left + width - 1;
    const float bottom = top + height - 1;
    const auto edge = [this](Color edgeColor, float x0, float y0, float x1, float y1) {
        // An edge in the background's colour is saved, even where it lies over the content.
        if (alphaOf(edgeColor) == 0 || edgeColor == backgroundColor)
            return;
        setColor(edgeColor, drawAlpha);
        line(x0, y0, x1, y1);
    };
    edge(topColor, left, top, right, top);
    edge(leftColor, left, top, left, bottom);
    edge(rightColor, right, top, right, bottom);
    // One pixel more: a line leaves its last pixel out, and nobody else draws this corner.
    edge(bottomColor, left, bottom, right + 1, bottom);
}

bool Widget::isChainEnabled() const
{
    for (const Widget* widget = this; widget != nullptr; widget = widget->parent) {
        if (!widget->touchEnabled)
            return false;
    }
    return true;
}

bool Widget::isOnScreen() const
{
    for (const Widget* widget = this; widget != nullptr; widget = widget->parent) {
        if (!widget->isDrawn() || !(widget->width > 0) || !(widget->height > 0))
            return false;
        if (dynamic_cast<const Screen*>(widget) != nullptr)
            return true;
    }
    return false;
}

bool Widget::isHitAt(std::int32_t pointX, std::int32_t pointY) const
{
    const auto px = static_cast<float>(pointX);
    const auto py = static_cast<float>(pointY);
    return isDrawn() && width > 0 && height > 0 && isChainEnabled() && px >= x && px < x + width &&
           py >= y && py < y + height;
}

void Widget::copyFromTemplate(const Widget& source)
{
    Widget* const place = parent;
    source.copyTo(*this);
    parent = place;
    id.clear();
}

ListenerList& Widget::listenerList()
{
    if (!listeners_)
        listeners_ = std::make_shared<ListenerList>(this);
    return *listeners_;
}

Screen* Widget::screen()
{
    Widget* root = this;
    while (root->parent != nullptr && dynamic_cast<Screen*>(root) == nullptr)
        root = root->parent;
    return dynamic_cast<Screen*>(root);
}

bool Widget::contains(const Widget* other) const
{
    for (; other != nullptr; other = other->parent) {
        if (other == this)
            return true;
    }
    return false;
}

void Widget::resolveExtent(Axis axis, float fallback)
{
    extent(axis) = resolveOwnSize({value(axis), mode(axis)}, fallback, extent(axis));
}

void Widget::applyLimits()
{
    if (maxWidth > 0 && width > maxWidth)
        width = maxWidth;
    if (maxHeight > 0 && height > maxHeight)
        height = maxHeight;
}

} // namespace nui
