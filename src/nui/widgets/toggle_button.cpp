#include "nui/widgets/toggle_button.h"

#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/reader/nui_reader.h"
#include "nui/widgets/screen.h"
#include "nui/widgets/template_items.h"

#include <algorithm>

namespace nui {

ToggleButton::ToggleButton()
{
    subscribe(*this, plain_event::Activate, onActivate, static_cast<Widget*>(this));
}

ToggleButton::ToggleButton(const ToggleButton& other) : Cloneable<ToggleButton, Container>(other)
{
    adoptState(other);
}

ToggleButton& ToggleButton::operator=(const ToggleButton& other)
{
    if (this != &other) {
        Container::operator=(other);
        adoptState(other);
    }
    return *this;
}

void ToggleButton::adoptState(const ToggleButton& other)
{
    itemTemplate_ = other.itemTemplate_;
    selectedItemTemplate_ = other.selectedItemTemplate_;
    selected_ = other.selected_;
    // What is shown has been cloned with the children, in order.
    const auto& items = other.children();
    const auto cloneOf = [&](const WidgetPtr& item) {
        const auto place = std::find(items.begin(), items.end(), item);
        if (place != items.end())
            return children()[static_cast<std::size_t>(place - items.begin())];
        return item ? item->clone() : nullptr;
    };
    item_ = cloneOf(other.item_);
    selectedItem_ = cloneOf(other.selectedItem_);
}

bool ToggleButton::read(NuiReader& reader)
{
    Container::read(reader);
    if (reader.readTemplateRef(itemTemplate_, "itemTemplate"))
        make(item_, itemTemplate_);
    if (reader.readTemplateRef(selectedItemTemplate_, "selectedItemTemplate"))
        make(selectedItem_, selectedItemTemplate_);
    showState();
    return true;
}

/// Takes the place of the clone of a former template.
void ToggleButton::make(WidgetPtr& item, const WidgetPtr& source)
{
    const WidgetPtr made = source ? itemOf(source) : nullptr;
    if (made)
        replace(item.get(), made);
    else
        remove(item.get());
    item = made;
}

bool ToggleButton::readOverrides(NuiReader& reader, bool skipSelf)
{
    Container::readOverrides(reader, skipSelf);
    if (const WidgetPtr other = hidden())
        other->readOverrides(reader, false);
    return true;
}

void ToggleButton::broadcast(WidgetEvent& event)
{
    Container::broadcast(event);
    const WidgetPtr other = hidden();
    if (other && event.stopLevel == stop_level::None)
        other->broadcast(event);
}

void ToggleButton::reloadText()
{
    Container::reloadText();
    if (auto* const text = dynamic_cast<ReloadableText*>(hidden().get()))
        text->reloadText();
}

void ToggleButton::setSelected(bool selected)
{
    if (selected == selected_)
        return;
    selected_ = selected;
    showState();
}

/// The clone that is no child; null if there is none.
WidgetPtr ToggleButton::hidden() const
{
    return find(item_.get()) ? selectedItem_ : item_;
}

/// Changes the child. Without a template for the selected state both look the same.
void ToggleButton::showState()
{
    const WidgetPtr wanted = selected_ && selectedItem_ ? selectedItem_ : item_;
    if (!wanted || find(wanted.get()))
        return;
    const WidgetPtr old = wanted == item_ ? selectedItem_ : item_;
    if (!replace(old.get(), wanted))
        add(wanted);
    wanted->resetState();
    Screen* const shown = screen();
    if (shown == nullptr)
        return;
    Form::renewAround(*this);
    if (old && shown->focusedWidget == old)
        engine().setFocus(wanted);
    shown->markDirty();
}

void ToggleButton::setEnabled(bool enabled)
{
    Container::setEnabled(enabled);
    const WidgetPtr child = find(item_.get()) ? item_ : selectedItem_;
    if (!child || !itemTemplate_ || !itemTemplate_->stateTemplates)
        return;
    const StateTemplates& looks = *itemTemplate_->stateTemplates;
    const Widget* look = child == item_ ? itemTemplate_.get() : selectedItemTemplate_.get();
    if (!enabled && looks.disabled)
        look = looks.disabled.get();
    else if (looks.normal)
        look = looks.normal.get();
    child->applyTemplate(look);
}

void ToggleButton::onActivate(WidgetEvent& event)
{
    auto& self = static_cast<ToggleButton&>(*static_cast<Widget*>(event.user));
    const Widget* const pressed = engine().pointer.pressed().get();
    if (event.phase != Phase::Bubbling || event.stopLevel != stop_level::None || event.prevented ||
        pressed == nullptr || event.source != pressed || pressed->parent != &self)
        return;
    self.setSelected(!self.selected_);
    // In place of the child's, so that nobody hears of one click twice.
    WidgetEvent activated(event.type);
    bubble(self, activated);
    event.stop(stop_level::Swallow);
}

} // namespace nui
