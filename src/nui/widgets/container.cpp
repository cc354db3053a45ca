#include "nui/widgets/container.h"

#include "nui/draw/drawing.h"
#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/layout/placing_pass.h"
#include "nui/reader/layout_loader.h"
#include "nui/reader/nesting.h"
#include "nui/reader/nui_reader.h"
#include "nui/widgets/overlay.h"

#include <algorithm>
#include <array>

namespace nui {

namespace {

constexpr std::array<const char*, 5> LayoutNames = {"Horizontal", "Vertical", "HorizontalGrid",
                                                    "VerticalGrid", nullptr};

} // namespace

Container::Container(const Container& other)
    : Cloneable<Container, Widget>(other), ReloadableText(other)
{
    adopt(other);
}

Container& Container::operator=(const Container& other)
{
    if (this != &other) {
        Widget::operator=(other);
        adopt(other);
        // The listeners are this container's own and may not scroll yet.
        listenForScrolling(scrollableX || scrollableY);
    }
    return *this;
}

Container::~Container()
{
    form.reset();
    removeAll();
}

void Container::adopt(const Container& other)
{
    padding = other.padding;
    layoutKind = other.layoutKind;
    scrollX = other.scrollX;
    scrollY = other.scrollY;
    minScrollX = other.minScrollX;
    minScrollY = other.minScrollY;
    maxScrollX = other.maxScrollX;
    maxScrollY = other.maxScrollY;
    scrollableX = other.scrollableX;
    scrollableY = other.scrollableY;
    childrenTouch = other.childrenTouch;
    dragging_ = other.dragging_;
    dragOriginX_ = other.dragOriginX_;
    dragOriginY_ = other.dragOriginY_;
    dragEvents_ = other.dragEvents_;
    layoutValid_ = other.layoutValid_;

    form.reset();
    removeAll();
    children_.reserve(other.children_.size());
    for (const WidgetPtr& child : other.children_) {
        children_.push_back(child->clone());
        children_.back()->parent = this;
    }
    if (other.form)
        buildForm();
}

void Container::copyTo(Widget& target) const
{
    if (auto* const container = dynamic_cast<Container*>(&target))
        *container = *this;
}

void Container::drawChildren(Point position)
{
    for (const WidgetPtr& child : children_) {
        const Rect outerClip = getClip();
        const auto* const overlay =
            child->isOverlay() ? dynamic_cast<const Overlay*>(child.get()) : nullptr;
        if (const WidgetPtr anchor = overlay != nullptr ? overlay->anchor.lock() : nullptr)
            setClip(pixelRect(anchor->x, anchor->y, anchor->width, anchor->height));
        child->draw({position.x + scrollX + child->offsetX, position.y + scrollY + child->offsetY},
                    drawAlpha);
        setClip(outerClip);
    }
}

void Container::place()
{
    PlacingPass(*this).run();
    layoutValid_ = true;
    placeChildren();
    if (layoutValid_)
        return;
    // A child found only while it was placed that it needs another size. There is no third round.
    layout(0);
    PlacingPass(*this).run();
    placeChildren();
}

void Container::placeChildren()
{
    const std::vector<WidgetPtr> copy = children_;
    for (const WidgetPtr& child : copy)
        child->place();
}

void Container::relayout(std::uint32_t flags)
{
    layout(flags);
    place();
}

bool Container::read(NuiReader& reader)
{
    Widget::read(reader);
    if (reader.prefix().empty())
        readChildren(reader);
    auto kind = static_cast<std::uint32_t>(layoutKind);
    reader.readEnum(kind, "layout", LayoutNames.data());
    layoutKind = static_cast<LayoutKind>(kind);
    reader.readEdges(padding, "padding");
    reader.readBool(childrenTouch, "childrenTouch");
    bool vertically = false;
    bool horizontally = false;
    reader.readBool(vertically, "scrollY");
    reader.readBool(horizontally, "scrollX");
    if (vertically || horizontally)
        setScrollable(horizontally, vertically);
    bool isForm = false;
    reader.readBool(isForm, "form");
    if (isForm)
        buildForm();
    return true;
}

void Container::readChildren(NuiReader& reader)
{
    for (auto item = reader.children(); item; item = item->next()) {
        if (WidgetPtr shared = item->widgetRefHere()) {
            if (reader.loader().hasRoom(*item, levelsOf(*shared)))
                add(std::move(shared));
            continue;
        }
        const WidgetPtr child = reader.loader().build(*item, nullptr);
        if (!child)
            continue;
        // Just built, so it is in no list yet and none has to be searched.
        child->parent = this;
        children_.push_back(child);
        if (!child->id.empty())
            reader.pack().widgets[child->id] = child;
        reader.pack().widgets["-"] = child;
    }
}

bool Container::readOverrides(NuiReader& reader, bool skipSelf)
{
    if (!skipSelf)
        Widget::readOverrides(reader, false);
    for (const WidgetPtr& child : children_)
        child->readOverrides(reader, false);
    return true;
}

void Container::applyTemplate(const Widget* look)
{
    Widget::applyTemplate(look);
    const auto* const container = dynamic_cast<const Container*>(look);
    if (container == nullptr)
        return;
    for (const WidgetPtr& child : children_) {
        if (!child->name.empty())
            child->applyTemplate(container->findChild(child->name).get());
    }
}

Widget* Container::findByName(const std::string& wanted)
{
    if (name == wanted)
        return this;
    for (const WidgetPtr& child : children_) {
        if (Widget* const found = child->findByName(wanted))
            return found;
    }
    return nullptr;
}

void Container::broadcast(WidgetEvent& event)
{
    dispatch(*this, event, Phase::Broadcast);
    if (event.stopLevel != stop_level::None)
        return;
    const std::vector<WidgetPtr> copy = children_;
    for (const WidgetPtr& child : copy) {
        child->broadcast(event);
        if (event.stopLevel > stop_level::EndsBubble)
            return;
    }
}

void Container::reloadText()
{
    for (const WidgetPtr& child : children_) {
        if (auto* const text = dynamic_cast<ReloadableText*>(child.get()))
            text->reloadText();
    }
}

std::uint32_t Container::hitTest(TouchEvent& event, WidgetPtr& deepest, WidgetPtr& captured,
                                 std::uint32_t depth)
{
    const auto hit =
        std::find_if(children_.rbegin(), children_.rend(),
                     [&event](const WidgetPtr& child) { return child->isHitAt(event.x, event.y); });
    if (hit == children_.rend())
        return depth;
    const WidgetPtr child = *hit;
    ListenerList* const spy = engine().eventSpy();
    const auto offerToSpy = [&] {
        event.source = child.get();
        spy->call(event);
        event.source = deepest.get();
    };
    const auto takeCapture = [&] {
        if (event.captureRequest == child.get()) {
            captured = child;
            event.captured = true;
        }
    };

    auto* const container = dynamic_cast<Container*>(child.get());
    if (container != nullptr && container->childrenTouch) {
        depth = container->hitTest(event, deepest, captured, depth + 1);
        if (spy != nullptr && !deepest)
            offerToSpy();
        if (event.stopLevel >= stop_level::EndsBubble)
            return 0;
        takeCapture();
    } else if (spy != nullptr) {
        offerToSpy();
    }

    if (!deepest) {
        deepest = child;
        event.source = child.get();
        if (event.stopLevel == stop_level::None)
            dispatch(*child, event, Phase::AtTarget);
        if (event.stopLevel != stop_level::None)
            return 1;
        takeCapture();
    }
    dispatch(*this, event, Phase::Bubbling);
    return depth;
}

void Container::add(WidgetPtr child)
{
    insert(children_.size(), std::move(child));
}

void Container::insert(std::size_t index, WidgetPtr child)
{
    if (!child)
        return;
    const auto present = std::find(children_.begin(), children_.end(), child);
    if (present != children_.end()) {
        if (static_cast<std::size_t>(present - children_.begin()) < index)
            --index;
        children_.erase(present);
    }
    child->parent = this;
    index = std::min(index, children_.size());
    children_.insert(children_.begin() + static_cast<std::ptrdiff_t>(index), std::move(child));
}

bool Container::remove(const Widget* child)
{
    const WidgetPtr found = find(child);
    if (!found)
        return false;
    std::erase(children_, found);
    if (found->parent == this)
        found->parent = nullptr;
    return true;
}

void Container::removeAll()
{
    for (const WidgetPtr& child : children_) {
        // One that was shared with another container since belongs to that one.
        if (child->parent == this)
            child->parent = nullptr;
    }
    children_.clear();
}

bool Container::replace(const Widget* child, WidgetPtr replacement)
{
    const WidgetPtr found = find(child);
    if (!found || !replacement)
        return false;
    std::erase(children_, replacement == found ? nullptr : replacement);
    const auto place = std::find(children_.begin(), children_.end(), found);
    if (found->parent == this)
        found->parent = nullptr;
    replacement->parent = this;
    *place = std::move(replacement);
    return true;
}

WidgetPtr Container::find(const Widget* child) const
{
    const auto found =
        std::find_if(children_.begin(), children_.end(),
                     [child](const WidgetPtr& present) { return present.get() == child; });
    return found == children_.end() ? nullptr : *found;
}

WidgetPtr Container::findChild(const std::string& wanted) const
{
    const auto found =
        std::find_if(children_.begin(), children_.end(),
                     [&wanted](const WidgetPtr& child) { return child->name == wanted; });
    return found == children_.end() ? nullptr : *found;
}

void Container::forEach(const std::function<bool(Widget& child)>& function) const
{
    const std::vector<WidgetPtr> copy = children_;
    for (const WidgetPtr& child : copy) {
        if (!function(*child))
            return;
    }
}

void Container::buildForm()
{
    form.reset();
    form = std::make_unique<Form>(*this);
}

} // namespace nui
