#include "nui/engine/popups.h"

#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/widgets/overlay.h"
#include "nui/widgets/screen.h"

#include <algorithm>
#include <vector>

namespace nui {

namespace {

void removeGroup(Screen& screen, std::uint32_t group)
{
    if (group == 0)
        return;
    const std::vector<WidgetPtr> children = screen.children();
    for (const WidgetPtr& child : children) {
        const auto* const overlay = dynamic_cast<const Overlay*>(child.get());
        if (overlay != nullptr && overlay->group == group)
            screen.remove(child.get());
    }
}

} // namespace

void Popups::show(const WidgetPtr& popup)
{
    showOver(popup, nullptr);
}

void Popups::showOver(const WidgetPtr& popup, const Widget* opener)
{
    const ScreenPtr screen = engine_.screens.current();
    if (!screen || !popup)
        return;
    const std::size_t level = levelOf(popup.get());
    std::size_t below = levelOf(opener);
    if (level != 0)
        below = std::min(below, level - 1);
    // One that is shown again where it is stays, with the focus in it.
    const bool stays = level == below + 1;
    closeDownTo(stays ? level : below);
    if (!stays) {
        open_.push_back(popup);
        subscribe(*popup, touch::Press, onPress, this);
    }
    screen->add(popup);
    screen->markDirty();
}

void Popups::close()
{
    closeDownTo(0);
}

void Popups::close(const Widget& popup)
{
    if (isOpen(popup))
        closeDownTo(levelOf(&popup) - 1);
}

void Popups::closeDownTo(std::size_t count)
{
    while (open_.size() > count) {
        const WidgetPtr closing = open_.back();
        open_.pop_back();
        unsubscribe(*closing, touch::Press, onPress);
        Screen* const screen = closing->screen();
        if (screen == nullptr)
            continue;
        engine_.pointer.forgetTree(*closing);
        engine_.keyboard.forgetTree(*closing);
        screen->remove(closing.get());
        if (const auto* const overlay = dynamic_cast<const Overlay*>(closing.get()))
            removeGroup(*screen, overlay->group);
        screen->markDirty();
    }
}

void Popups::closeOn(const Screen& screen)
{
    if (!open_.empty() && screen.contains(open_.front().get()))
        close();
}

WidgetPtr Popups::open() const
{
    return open_.empty() ? nullptr : open_.back();
}

bool Popups::isOpen(const Widget& popup) const
{
    return std::ranges::any_of(open_,
                               [&popup](const WidgetPtr& each) { return each.get() == &popup; });
}

std::size_t Popups::levelOf(const Widget* widget) const
{
    const auto around = std::ranges::find_if(open_, [widget](const WidgetPtr& each) {
        return widget != nullptr && each->contains(widget);
    });
    return around == open_.end() ? 0 : static_cast<std::size_t>(around - open_.begin()) + 1;
}

void Popups::pressedOnScreen()
{
    closeDownTo(pressedLevel_);
    pressedLevel_ = 0;
}

void Popups::onPress(WidgetEvent& event)
{
    auto& self = *static_cast<Popups*>(event.user);
    self.pressedLevel_ = self.levelOf(event.target);
}

} // namespace nui
