#include "nui/widgets/form.h"

#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/widgets/container.h"
#include "nui/widgets/text_field.h"

#include <SDL_keycode.h>

#include <utility>

namespace nui {

namespace {

// Shift, Ctrl, Alt and the Command keys; the locks don't matter.
constexpr std::uint16_t ModifierMask = 0xFC3;
constexpr std::uint16_t LeftShift = 1;
constexpr std::uint16_t RightShift = 2;

Widget* widgetOf(const std::shared_ptr<FormItem>& item)
{
    return dynamic_cast<Widget*>(item.get());
}

} // namespace

Form::Form(Container& root) : root_(root)
{
    addItemsBelow(root);
    const std::shared_ptr<FormItem> first = first_.lock();
    const std::shared_ptr<FormItem> last = last_.lock();
    if (first && last) {
        first->neighbours_->previous = last;
        last->neighbours_->next = first;
    }
}

Form::~Form()
{
    for (const std::weak_ptr<FormItem>& known : items_) {
        const std::shared_ptr<FormItem> item = known.lock();
        // One that another form has taken over since listens to that one.
        if (!item || !item->neighbours_ || item->neighbours_->form != this)
            continue;
        item->neighbours_.reset();
        Widget& widget = *widgetOf(item);
        unsubscribe(widget, keyboard::Down, onKey);
        unsubscribe(widget, keyboard::FocusGained, onFocusGained);
        unsubscribe(widget, keyboard::FocusLost, onFocusLost);
        unsubscribe(widget, touch::Leave, onFocusLost);
    }
}

void Form::renewAround(Widget& changed)
{
    // From the inside out, as they were built: an outer form takes over the items of inner ones.
    for (Widget* ancestor = &changed; ancestor != nullptr; ancestor = ancestor->parent) {
        auto* const container = dynamic_cast<Container*>(ancestor);
        if (container == nullptr || !container->form)
            continue;
        const WidgetPtr chosen = container->form->defaultItem();
        container->buildForm();
        // One that the program has chosen.
        if (chosen && !container->form->defaultItem() && container->contains(chosen.get()))
            container->form->setDefaultItem(chosen);
    }
}

void Form::addItemsBelow(Container& container)
{
    for (const WidgetPtr& child : container.children()) {
        if (auto* const item = dynamic_cast<FormItem*>(child.get()))
            add(child, *item);
        else if (auto* const inner = dynamic_cast<Container*>(child.get()))
            addItemsBelow(*inner);
    }
}

void Form::add(const WidgetPtr& widget, FormItem& item)
{
    // Shares the widget's count, as a form item is always a widget.
    const std::shared_ptr<FormItem> shared(widget, &item);
    item.neighbours_ = std::make_unique<FormItem::Neighbours>();
    item.neighbours_->form = this;
    if (const std::shared_ptr<FormItem> previous = last_.lock()) {
        previous->neighbours_->next = shared;
        item.neighbours_->previous = previous;
    } else {
        first_ = shared;
    }
    last_ = shared;
    items_.push_back(shared);
    // Behind the widget's own listener, which may swallow the key; never two forms at once.
    unsubscribe(*widget, keyboard::Down, onKey);
    subscribe(*widget, keyboard::Down, onKey, this);
    subscribe(*widget, keyboard::FocusGained, onFocusGained, nullptr);
    subscribe(*widget, keyboard::FocusLost, onFocusLost, nullptr);
    subscribe(*widget, touch::Leave, onFocusLost, nullptr);
    if (item.isDefault)
        setDefaultItem(widget);
}

/// What has the keyboard looks as if the pointer were over it.
void Form::onFocusGained(WidgetEvent& event)
{
    Widget& item = *event.target;
    const StateTemplates* const looks = item.stateTemplates.get();
    if (looks != nullptr && looks->over)
        item.applyTemplate(looks->over.get());
}

void Form::onFocusLost(WidgetEvent& event)
{
    event.target->resetState();
}

void Form::onKey(WidgetEvent& event)
{
    auto& sender = *event.target;
    const auto* const item = dynamic_cast<FormItem*>(&sender);
    // A clone of an item alone keeps the listener and belongs to no form.
    if (item == nullptr || !item->neighbours_)
        return;
    const auto& key = static_cast<const KeyboardEvent&>(event);
    const auto modifiers = static_cast<std::uint16_t>(key.modifiers & ModifierMask);
    const bool backward = modifiers == LeftShift || modifiers == RightShift;
    if (modifiers != 0 && !backward)
        return;
    if (key.key == SDLK_TAB)
        static_cast<const Form*>(event.user)->moveFocus(sender, !backward);
    else if ((key.key == SDLK_RETURN || key.key == SDLK_KP_ENTER) && !key.repeat)
        activateDefault(sender);
}

void Form::moveFocus(Widget& sender, bool forward) const
{
    auto* const start = dynamic_cast<FormItem*>(&sender);
    FormItem* item = start;
    // As many steps as there are items: forms within forms may leave the sender out of the ring.
    for (std::size_t steps = 0; steps < items_.size(); ++steps) {
        const FormItem::Neighbours* const neighbours = item->neighbours_.get();
        if (neighbours == nullptr)
            return;
        const std::shared_ptr<FormItem> next =
            (forward ? neighbours->next : neighbours->previous).lock();
        if (!next || next.get() == start)
            return;
        item = next.get();
        Widget& widget = *widgetOf(next);
        if (canTakeFocus(widget)) {
            engine().setFocus(widget.shared_from_this());
            if (auto* const field = dynamic_cast<TextField*>(&widget))
                field->selectAll();
            return;
        }
    }
}

void Form::activateDefault(Widget& sender)
{
    for (Widget* ancestor = sender.parent; ancestor != nullptr; ancestor = ancestor->parent) {
        const auto* const container = dynamic_cast<Container*>(ancestor);
        if (container == nullptr || !container->form)
            continue;
        const WidgetPtr item = container->form->defaultItem();
        if (!item || item.get() == &sender || !item->isChainEnabled())
            return;
        // First a field's own last word: what is bound to it takes over its text.
        if (dynamic_cast<TextField*>(&sender) != nullptr)
            send(sender, plain_event::Activate);
        send(*item, plain_event::Activate);
        return;
    }
}

bool Form::canTakeFocus(const Widget& widget) const
{
    for (const Widget* step = &widget; step != nullptr; step = step->parent) {
        if (!step->isDrawn() || !(step->width > 0) || !(step->height > 0))
            return false;
        if (step == &root_)
            return widget.isChainEnabled();
    }
    return false;
}

} // namespace nui
