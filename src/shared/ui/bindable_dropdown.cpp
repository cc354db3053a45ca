#include "shared/ui/bindable_dropdown.h"

#include <SDL_keycode.h>

namespace nrd::shared::ui {

void bindable_dropdown::handlePush(nui::WidgetEvent& event)
{
    // Without a choice there is no text, and the model keeps what no item has.
    if (selectedIndex() == None || !isChainEnabled())
        return;
    if (event.type == nui::keyboard::Down) {
        const std::int32_t key = static_cast<const nui::KeyboardEvent&>(event).key;
        if (key != SDLK_UP && key != SDLK_DOWN)
            return;
    }
    pushValue();
}

} // namespace nrd::shared::ui
