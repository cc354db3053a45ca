#include "inst/installer/ui/page_events.h"

#include "inst/installer/ui/find_widget.h"
#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/widgets/pages_container.h"
#include "nui/widgets/screen.h"

namespace nrd::installer::ui {

bool tells_of_showing(const nui::WidgetEvent& event)
{
    return dynamic_cast<const nui::PagesContainerEvent*>(&event) != nullptr &&
           event.phase == nui::Phase::AtTarget;
}

void show_page(nui::Widget& from, const std::string& name)
{
    require<nui::PagesContainer>(from.parent, from.name, "pages container around it").show(name);
}

void focus(nui::Widget& widget)
{
    nui::Screen* const screen = widget.screen();
    const nui::Engine& engine = nui::engine();
    if (screen == nullptr || screen->focusedWidget.get() == &widget) {
        return;
    }
    if (engine.keyboard.focusScreen.get() == screen && engine.screens.current().get() == screen) {
        nui::engine().setFocus(widget.shared_from_this());
        return;
    }
    screen->focusedWidget = widget.shared_from_this();
    nui::KeyboardEvent gained(nui::keyboard::FocusGained);
    nui::dispatch(widget, gained, nui::Phase::AtTarget);
}

} // namespace nrd::installer::ui
