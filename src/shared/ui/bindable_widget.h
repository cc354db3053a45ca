#pragma once

#include "bind/bindable.h"
#include "nui/events/dispatch.h"
#include "nui/widgets/widget.h"

#include <array>

namespace nrd::shared::ui {

/// From when on what a user does reaches the model. Most widgets wait until their screen has a
/// window: what happens while a layout is built is nobody's doing.
enum class push_from { window, construction };

/// A toolkit widget of class `W` that shows a property of a model, in both directions; see
/// bind::bindable. `Self` is the concrete class, which says in `PushesOn` by which events of its
/// own the user's value goes to the model. A copy is bound to the same property.
template <class Self, class W, class T, push_from From = push_from::window>
class bindable_widget : public nui::Cloneable<Self, W>, public bind::bindable_nui<Self, T> {
public:
    static constexpr std::array PushesOn = {nui::plain_event::Activate};

    bindable_widget()
    {
        if constexpr (From == push_from::window)
            nui::subscribe(*this, nui::plain_event::WindowOpening, onWindow, asUser());
        else
            listenForPushes();
    }

protected:
    /// One of the events has come.
    virtual void handlePush(nui::WidgetEvent& /*event*/) { this->pushValue(); }

private:
    /// Clones put themselves in the place of this pointer, so it is the one that they know.
    nui::Widget* asUser() { return this; }

    static Self& userOf(const nui::WidgetEvent& event)
    {
        return static_cast<Self&>(*static_cast<nui::Widget*>(event.user));
    }

    static void onWindow(nui::WidgetEvent& event) { userOf(event).listenForPushes(); }

    static void onPush(nui::WidgetEvent& event)
    {
        bindable_widget& self = userOf(event);
        self.handlePush(event);
    }

    void listenForPushes()
    {
        for (const nui::EventType type : Self::PushesOn)
            nui::subscribe(*this, type, onPush, asUser());
    }
};

} // namespace nrd::shared::ui
