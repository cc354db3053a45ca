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

/// The children have been cloned in order.
void ToggleButton::adoptState(const ToggleButton& other)
{
    itemTemplate_ = other.itemTemplate_;
    selectedTemplate_ = other.selectedTemplate_;
    selected_ = other.selected_;
    const auto& items = other.children();
    const auto place = std::find(items.begin(), items.end(), other.item_);
    item_ = place == items.end() ? nullptr
                                 : children()[static_cast<std::size_t>(place - items.begin())];
}

bool ToggleButton::read(NuiReader& reader)
{
    Container::read(reader);
    const bool hasItem = reader.readTemplateRef(itemTemplate_, "itemTemplate");
    if (reader.readTemplateRef(selectedTemplate_, "selectedItemTemplate") || hasItem)
        showState();
    return true;
}

void ToggleButton::setSelected(bool selected)
{
    if (selected == selected_)
        return;
    selected_ = selected;
    showState();
}

/// Changes the child. Without a template for the selected state both look the same.
void ToggleButton::showState()
{
    const WidgetPtr& source = selected_ && selectedTemplate_ ? selectedTemplate_ : itemTemplate_;
    if (!source)
        return;
    const WidgetPtr old = item_;
    item_ = itemOf(source);
    if (!old || !replace(old.get(), item_))
        add(item_);
    item_->resetState();
    Screen* const shown = screen();
    if (shown == nullptr)
        return;
    Form::renewAround(*this);
    if (old && shown->focusedWidget == old)
        engine().setFocus(item_);
    shown->markDirty();
}

void ToggleButton::setEnabled(bool enabled)
{
    Container::setEnabled(enabled);
    if (!item_ || !itemTemplate_)
        return;
    const StateTemplates* const looks = itemTemplate_->stateTemplates.get();
    const Widget* look = itemTemplate_.get();
    if (looks != nullptr && !enabled && looks->disabled)
        look = looks->disabled.get();
    else if (looks != nullptr && looks->normal)
        look = looks->normal.get();
    item_->applyTemplate(look);
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
