#include "nui/engine/screen_table.h"

#include "nui/draw/gl_context.h"
#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/widgets/screen.h"

#include <algorithm>

namespace nui {

void ScreenTable::add(const ScreenPtr& screen)
{
    screens_[screen->windowId()] = screen;
    subscribe(*screen, touch::Press, onPress, &engine_);
    screen->markDirty();
    auto* const over = dynamic_cast<Screen*>(screen->parent);
    if (screen->isOpen() && !screen->window->hidden && over != nullptr)
        over->setEnabled(false);
    lastHasClosed_ = false;
}

void ScreenTable::onPress(WidgetEvent& event)
{
    static_cast<Engine*>(event.user)->popups.pressedOnScreen();
}

void ScreenTable::close(const ScreenPtr& screen)
{
    // Held here, as the caller's may be the table's own.
    const auto closing = std::static_pointer_cast<Screen>(screen->shared_from_this());
    if (closing->isOpen()) {
        closing->window->hide();
        releaseParent(*closing);
    }
    unsubscribe(*closing, touch::Press, onPress);
    drop(closing);
}

void ScreenTable::releaseParent(Screen& screen)
{
    auto* const over = dynamic_cast<Screen*>(screen.parent);
    if (over == nullptr || !over->isOpen())
        return;
    over->setEnabled(true);
    over->window->raise();
    engine_.keyboard.focusScreen = std::static_pointer_cast<Screen>(over->shared_from_this());
}

void ScreenTable::drop(const ScreenPtr& screen)
{
    const ScreenPtr dropped = screen;
    engine_.keyboard.noteHeldKeys();
    engine_.popups.closeOn(*dropped);
    engine_.pointer.forgetTree(*dropped);
    engine_.toolTips.forgetTree(*dropped);
    if (engine_.keyboard.focusScreen == dropped)
        engine_.keyboard.focusScreen.reset();
    dropped->focusedWidget.reset();
    if (current_ == dropped)
        current_.reset();
    const std::size_t erased =
        std::erase_if(screens_, [&dropped](const auto& entry) { return entry.second == dropped; });
    for (const auto& [id, other] : screens_) {
        if (other->parent == dropped.get())
            other->loseParent();
    }
    dropped->closeWindow();
    lastHasClosed_ = lastHasClosed_ || (erased != 0 && screens_.empty());
}

ScreenPtr ScreenTable::find(std::uint32_t windowId) const
{
    const auto found = screens_.find(windowId);
    return found == screens_.end() ? nullptr : found->second;
}

ScreenPtr ScreenTable::mainScreen() const
{
    return screens_.empty() ? nullptr : screens_.begin()->second;
}

void ScreenTable::makeCurrent(const ScreenPtr& screen)
{
    if (!screen->isOpen())
        return;
    if (current_ == screen && currentWindow() == screen->window.get())
        return;
    current_ = screen;
    nui::makeCurrent(screen->window.get());
    set2DProjection();
    setViewport();
}

void ScreenTable::markAllDirty()
{
    for (const auto& [id, screen] : screens_)
        screen->markDirty();
}

void ScreenTable::raiseModalOver(const ScreenPtr& screen)
{
    const Screen* blocked = screen.get();
    // Modal windows may stand over modal windows; there cannot be more of them than screens.
    for (std::size_t round = 0; round < screens_.size(); ++round) {
        const auto over = std::find_if(screens_.begin(), screens_.end(), [&](const auto& entry) {
            return entry.second->parent == blocked && entry.second->isOpen();
        });
        if (over == screens_.end())
            return;
        if (over->second->window->enabled) {
            over->second->window->raise();
            return;
        }
        blocked = over->second.get();
    }
}

} // namespace nui
