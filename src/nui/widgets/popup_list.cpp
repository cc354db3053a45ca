#include "nui/widgets/popup_list.h"

#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/widgets/control_looks.h"
#include "nui/widgets/list_box.h"
#include "nui/widgets/screen.h"
#include "nui/widgets/solid_scrollbar.h"
#include "nui/widgets/template_items.h"
#include "nui/widgets/text_label.h"

#include <SDL_keycode.h>

#include <algorithm>
#include <cmath>

namespace nui {

namespace {

constexpr float ScrollbarWidth = 12; ///< points
constexpr float Frame = 1;           ///< pixels around the list
constexpr float EndRoom = 8;         ///< points behind the text of an item

std::shared_ptr<ListBox> listLike(const Widget* look)
{
    auto list = look == nullptr ? nullptr : std::dynamic_pointer_cast<ListBox>(look->clone());
    if (!list) {
        list = std::make_shared<ListBox>();
        list->applyTemplate(look);
    }
    return list;
}

} // namespace

PopupList::PopupList(const Widget* look)
    : list_(listLike(look)), scrollbar_(std::make_shared<SolidScrollbar>())
{
    setControlColors(*this);
    visibility = visibility::Overlapping;
    layoutKind = LayoutKind::Horizontal;
    padding = {Frame, Frame, Frame, Frame};
    widthMode = Px;
    heightMode = Px;
    list_->margin = {};
    list_->setInteractive(false);
    for (Color* const edge :
         {&list_->topColor, &list_->rightColor, &list_->bottomColor, &list_->leftColor})
        *edge = 0;
    scrollbar_->setContainer(list_);
    add(list_);
    add(scrollbar_);
    for (const EventType type : {touch::Press, touch::Move, touch::Release})
        subscribe(*this, type, onPointer, static_cast<Widget*>(this));
}

void PopupList::setItems(std::vector<std::string> keys)
{
    list_->setItems(std::move(keys));
}

void PopupList::openBelow(const WidgetPtr& widget)
{
    below_ = widget;
    isBelow_ = true;
    open(widget.get());
}

void PopupList::openAt(Point position, const Widget* opener)
{
    below_.reset();
    isBelow_ = false;
    position_ = position;
    open(opener);
}

void PopupList::open(const Widget* opener)
{
    armed_ = false;
    engine().popups.showOver(shared_from_this(), opener);
    // The list shows its highlighted item once it has its size.
    const std::int32_t shown = list_->current();
    list_->select(ListBox::None);
    list_->select(shown);
}

void PopupList::close()
{
    if (isOpen())
        engine().popups.close(*this);
}

bool PopupList::isOpen() const
{
    return Engine::exists() && engine().popups.isOpen(*this);
}

void PopupList::choose(std::int32_t index)
{
    // Held, as the choice may let go of the list.
    const WidgetPtr self = shared_from_this();
    const Choice choice = choice_;
    close();
    if (choice)
        choice(index);
}

bool PopupList::isChoosingKey(std::int32_t key) const
{
    return key == SDLK_RETURN || key == SDLK_KP_ENTER ||
           (key == SDLK_SPACE && !list_->isBeingTypedTo());
}

bool PopupList::handleKey(WidgetEvent& event)
{
    if (!isOpen())
        return false;
    const std::int32_t key = static_cast<const KeyboardEvent&>(event).key;
    const std::uint16_t modifiers = static_cast<const KeyboardEvent&>(event).modifiers;
    const bool closes =
        key == SDLK_F4 || ((key == SDLK_UP || key == SDLK_DOWN) && (modifiers & KMOD_ALT) != 0);
    if (closes) {
        close();
        event.consume();
        return true;
    }
    const std::int32_t current = list_->current();
    const std::int32_t next = list_->indexAfterKey(key, current);
    if (next != ListBox::None)
        list_->select(next);
    else if (key == SDLK_ESCAPE || key == SDLK_TAB)
        close();
    else if (isChoosingKey(key) && current != ListBox::None)
        choose(current);
    // Tab goes on to the next item of the form.
    if (key != SDLK_TAB)
        event.consume();
    return true;
}

void PopupList::onPointer(WidgetEvent& event)
{
    auto* const self = dynamic_cast<PopupList*>(static_cast<Widget*>(event.user));
    if (self == nullptr)
        return;
    // The pointer may hold the scroll bar's thumb while it is over an item.
    const Widget* const captured = engine().pointer.captured().get();
    if (captured != nullptr && !self->list_->contains(captured))
        return;
    const auto& touched = static_cast<const TouchEvent&>(event);
    // The keyboard stays with the owner.
    if (event.type == touch::Press)
        engine().keyboard.focusTaken = true;
    ListBox& list = *self->list_;
    const std::int32_t index =
        list.itemAt({static_cast<float>(touched.x), static_cast<float>(touched.y)});
    const bool usable =
        index != ListBox::None && list.children()[static_cast<std::size_t>(index)]->touchEnabled;
    if (event.type == touch::Release) {
        if (usable && self->armed_ && (touched.buttons & pointer_button::Left) != 0)
            self->choose(index);
        return;
    }
    self->armed_ = true;
    // What can be seen in part stays in part, as it would run away from under the pointer.
    if (usable)
        list.highlight(index);
}

float PopupList::widestText() const
{
    Font* const font = engine().fonts.defaultFont.get();
    float widest = 0;
    for (const WidgetPtr& item : list_->children()) {
        const TextLabel* const label = labelIn(*item);
        if (font == nullptr || label == nullptr)
            continue;
        TextLayout line;
        line.text = label->getText();
        line.size = label->fontSize;
        line.wordWrap = false;
        line.width = static_cast<float>(engine().metrics.width);
        line.height = static_cast<float>(engine().metrics.height);
        widest = std::max(widest, font->measureText(line).width);
    }
    return widest;
}

/// What an item needs beside its text. The list has been laid out.
float PopupList::roomBesideText() const
{
    const float least = EndRoom * engine().metrics.displayScale;
    const TextLabel* const label = list_->count() == 0 ? nullptr : labelIn(*list_->children()[0]);
    const bool fills = label != nullptr && label->widthMode == Weight;
    return fills ? least + std::max(0.0F, list_->width - label->width) : least;
}

float PopupList::wantedWidth() const
{
    const float bar = ScrollbarWidth * engine().metrics.displayScale;
    const WidgetPtr anchorWidget = below_.lock();
    const float least = anchorWidget ? anchorWidget->width : 0;
    return std::max(least, std::ceil(widestText() + roomBesideText() + bar + 2 * Frame));
}

float PopupList::rowsHeight() const
{
    float rows = 0;
    for (std::size_t index = 0; index < list_->count() && index < maxRows_; ++index) {
        Widget& item = *list_->children()[index];
        rows += item.height + item.margin.both(Axis::Y, 0);
    }
    return rows;
}

/// Below the anchor, if the list fits there or there is no more room above it.
PopupList::Room PopupList::roomFor(float wanted) const
{
    const float windowHeight = parent == nullptr ? wanted : parent->height;
    const WidgetPtr anchorWidget = below_.lock();
    if (!anchorWidget) {
        const float top = std::min(position_.y, windowHeight - wanted);
        return {std::max(top, 0.0F), std::min(wanted, windowHeight)};
    }
    const float above = positionOnWindow(*anchorWidget).y;
    const float bottom = above + anchorWidget->height;
    const float below = windowHeight - bottom;
    if (wanted <= below || below >= above)
        return {bottom, std::min(wanted, std::max(below, 0.0F))};
    const float used = std::min(wanted, above);
    return {above - used, used};
}

bool PopupList::layout(std::uint32_t /*flags*/)
{
    // At any width at first, from which the room beside the text can be told.
    list_->width = static_cast<float>(engine().metrics.width);
    list_->height = 0;
    list_->layout(layout_flag::Force);
    width = parent == nullptr ? wantedWidth() : std::min(wantedWidth(), parent->width);
    list_->width = width - 2 * Frame;
    list_->layout(layout_flag::Force);
    const float rows = rowsHeight();
    height = roomFor(rows + 2 * Frame).height;
    const bool scrolls = list_->count() > maxRows_ || height < rows + 2 * Frame;
    const float barWidth = scrolls ? ScrollbarWidth * engine().metrics.displayScale : 0;
    scrollbar_->visibility = scrolls ? visibility::Visible : visibility::Collapsed;
    list_->width -= barWidth;
    list_->height = height - 2 * Frame;
    scrollbar_->width = barWidth;
    scrollbar_->height = list_->height;
    for (const WidgetPtr& child : children())
        child->layout(layout_flag::Force);
    setLayoutValid(true);
    return true;
}

void PopupList::place()
{
    const WidgetPtr anchorWidget = below_.lock();
    // What it was opened for may have gone.
    if (isBelow_ && (!anchorWidget || !anchorWidget->isOnScreen())) {
        close();
        return;
    }
    if (parent != nullptr) {
        const float left = anchorWidget ? positionOnWindow(*anchorWidget).x : position_.x;
        localX = std::max(0.0F, std::min(left, parent->width - width));
        localY = roomFor(height).top;
    }
    Overlay::place();
}

} // namespace nui
