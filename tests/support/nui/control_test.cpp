#include "support/nui/control_test.h"

#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "support/nui/fixed_font.h"

#include <utility>

namespace nui::test {

ControlTest::ControlTest()
{
    engine().resourceDirectory = pictures.path();
    engine().fonts.defaultFont = std::make_unique<FixedFont>();
    engine().fonts.defaultEditFont = std::make_unique<FixedFont>();
}

void ControlTest::open(const std::string& children, const std::string& templates)
{
    screen = toolkit.open("{'templates': [" + templates +
                          "], 'widgets': [{'class': 'Screen', 'id': 'screen', 'form': true, "
                          "'windowWidth': 300, 'windowHeight': 200, 'children': [" +
                          children + "]}]}");
}

WidgetPtr ControlTest::find(const std::string& name) const
{
    Widget* const found = screen->findByName(name);
    if (found == nullptr)
        throw std::invalid_argument("no widget " + name);
    return found->shared_from_this();
}

void ControlTest::layOutAnew()
{
    screen->markDirty();
    toolkit.frame();
}

PopupList* ControlTest::popup()
{
    return dynamic_cast<PopupList*>(engine().popups.open().get());
}

void ControlTest::moveTo(const Widget& widget, float right, float down)
{
    toolkit.move(static_cast<int>(widget.x + widget.width / 2 + right),
                 static_cast<int>(widget.y + widget.height / 2 + down));
}

void ControlTest::press(const Widget& widget)
{
    moveTo(widget);
    toolkit.press();
}

void ControlTest::click(const Widget& widget)
{
    press(widget);
    toolkit.release();
    toolkit.frame();
}

void ControlTest::focus(const std::string& name)
{
    engine().setFocus(find(name));
}

std::string ControlTest::focused() const
{
    return screen->focusedWidget ? screen->focusedWidget->name : "";
}

void ControlTest::noteActivations(const std::string& name, std::function<std::string()> note)
{
    notes_.push_back(std::make_unique<Note>(Note{this, std::move(note)}));
    subscribe(*find(name), plain_event::Activate, onActivate, notes_.back().get());
}

void ControlTest::onActivate(WidgetEvent& event)
{
    const auto& note = *static_cast<const Note*>(event.user);
    note.test->taken_ += note.text() + " ";
}

std::string ControlTest::taken()
{
    return std::exchange(taken_, "");
}

} // namespace nui::test
