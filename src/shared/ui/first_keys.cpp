#include "shared/ui/first_keys.h"

#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"

#include <SDL_keycode.h>

namespace nrd::shared::ui {

namespace {

/// The outermost one that is drawn.
nui::Form* shownForm(const nui::Container& container)
{
    if (!container.isDrawn())
        return nullptr;
    if (container.form)
        return container.form.get();
    for (const nui::WidgetPtr& child : container.children()) {
        const auto* const inner = dynamic_cast<const nui::Container*>(child.get());
        if (nui::Form* const found = inner != nullptr ? shownForm(*inner) : nullptr)
            return found;
    }
    return nullptr;
}

void onKey(nui::WidgetEvent& event)
{
    const auto& pressed = static_cast<const nui::KeyboardEvent&>(event);
    auto& screen = static_cast<nui::Screen&>(*event.target);
    const nui::Form* const form = screen.focusedWidget ? nullptr : shownForm(screen);
    if (form == nullptr || pressed.repeat)
        return;
    if (pressed.key == SDLK_TAB) {
        if (const auto first = std::dynamic_pointer_cast<nui::Widget>(form->first()))
            nui::engine().setFocus(first);
    } else if (pressed.key == SDLK_RETURN || pressed.key == SDLK_KP_ENTER) {
        const nui::WidgetPtr item = form->defaultItem();
        if (item && item->isChainEnabled())
            nui::send(*item, nui::plain_event::Activate);
    }
}

} // namespace

void letKeysBegin(nui::Screen& screen)
{
    nui::subscribe(screen, nui::keyboard::Down, onKey, nullptr);
}

} // namespace nrd::shared::ui
