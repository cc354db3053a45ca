#include "inst/installer/ui/release_action.h"

#include "nui/events/dispatch.h"
#include "nui/widgets/widget.h"

#include <utility>

namespace nrd::installer::ui {

namespace {

release_action& self(const nui::WidgetEvent& event)
{
    return *static_cast<release_action*>(event.user);
}

} // namespace

void release_action::attach(nui::Widget& button, std::function<void()> action)
{
    action_ = std::move(action);
    nui::subscribeFirst(button, nui::touch::Release, on_release_begins, this);
    nui::subscribe(button, nui::touch::Release, on_release, this);
    nui::subscribe(button, nui::plain_event::Activate, on_activate, this);
}

void release_action::on_release_begins(nui::WidgetEvent& event)
{
    self(event).releasing_ = true;
}

void release_action::on_release(nui::WidgetEvent& event)
{
    self(event).releasing_ = false;
    // A button that was pressed hears of the release wherever it comes, and also when the page has
    // changed meanwhile, by a key.
    const auto& release = static_cast<const nui::TouchEvent&>(event);
    const auto& button = static_cast<const nui::Widget&>(*event.target);
    if (button.isOnScreen() && button.isHitAt(release.x, release.y)) {
        self(event).action_();
    }
}

void release_action::on_activate(nui::WidgetEvent& event)
{
    if (!self(event).releasing_) {
        self(event).action_();
    }
}

} // namespace nrd::installer::ui
