#include "nui/engine/back_stack.h"

#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/widgets/screen.h"

namespace nui {

namespace {

WidgetPtr modalChildOf(const Screen& screen)
{
    const std::shared_ptr<Container>& overlay = screen.modalOverlay();
    return overlay && !overlay->children().empty() ? overlay->children().front() : nullptr;
}

bool isDimmed(const Screen& screen)
{
    return screen.modalOverlay() && screen.modalOverlay()->backgroundColor != 0;
}

} // namespace

void BackStack::push()
{
    const ScreenPtr& screen = engine_.screens.current();
    if (screen)
        records_.push_back({screen, screen->stateId(), modalChildOf(*screen), isDimmed(*screen)});
}

void BackStack::pushScreen(const std::shared_ptr<Screen>& next)
{
    push();
    next->show();
    engine_.screens.makeCurrent(next);
    next->markDirty();
}

void BackStack::pushStateId(std::uint32_t next)
{
    push();
    if (const ScreenPtr& screen = engine_.screens.current()) {
        screen->setStateId(next);
        screen->markDirty();
    }
}

void BackStack::pushModalChild(const WidgetPtr& child, bool dim)
{
    push();
    if (const ScreenPtr& screen = engine_.screens.current())
        screen->showModalOverlay(child, dim);
}

bool BackStack::goBack()
{
    if (records_.empty())
        return false;
    const Record record = records_.back();
    records_.pop_back();
    const ScreenPtr current = engine_.screens.current();
    if (record.screen != current) {
        record.screen->show();
        engine_.screens.makeCurrent(record.screen);
    } else if (record.stateId != current->stateId()) {
        current->setStateId(record.stateId);
    } else if (record.modalChild != modalChildOf(*current)) {
        if (record.modalChild)
            current->showModalOverlay(record.modalChild, record.dimmed);
        else
            current->removeModalOverlay();
    }
    if (const ScreenPtr& shown = engine_.screens.current())
        shown->markDirty();
    return true;
}

void BackStack::attach(Widget& widget, EventType type)
{
    subscribe(widget, type, onBack, this);
}

void BackStack::onBack(WidgetEvent& event)
{
    auto& self = *static_cast<BackStack*>(event.user);
    // A release counts as a click only where the press was.
    if (event.type == touch::Release && self.engine_.pointer.pressed().get() != event.source)
        return;
    self.goBack();
    event.stop(stop_level::Swallow);
}

} // namespace nui
