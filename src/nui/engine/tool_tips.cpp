#include "nui/engine/tool_tips.h"

#include "nui/engine/engine.h"
#include "nui/widgets/default_tool_tip.h"
#include "nui/widgets/screen.h"

namespace nui {

namespace {

constexpr float FadeSeconds = 0.4F;
/// Below the pointer's picture.
constexpr float PointerHeight = 32;

/// A text that the language does not know stands for itself.
std::string textOf(const Engine& engine, const Widget& widget)
{
    return engine.lang ? engine.lang->getString(widget.toolTip) : widget.toolTip;
}

} // namespace

void ToolTips::arm(std::uint64_t time, const std::shared_ptr<Screen>& owner)
{
    time_ = time;
    DefaultToolTip& tip = requireWidget();
    const ScreenPtr screen =
        owner ? owner : (tip.parent == nullptr ? engine_.screens.current() : nullptr);
    if (screen)
        moveTo(*screen);
    if (time == 0) {
        if (Screen* const shown = tip.screen())
            shown->markDirty();
    }
}

void ToolTips::aimAt(Widget& widget)
{
    target_ = widget.weak_from_this();
    if (!isShowing())
        time_ = engine_.now() + RestTime;
    else
        time_ = widget_->getText() == textOf(engine_, widget) ? AtOnce : AtOnceFading;
}

void ToolTips::restAgain()
{
    if (time_ > AtOnceFading)
        time_ = engine_.now() + RestTime;
}

void ToolTips::hide()
{
    if (!widget_)
        return;
    if (fade_) {
        engine_.tweens.kill(fade_);
        fade_.reset();
    }
    widget_->visibility = visibility::Collapsed;
}

void ToolTips::step(std::uint64_t now)
{
    if (time_ == 0 || now < time_)
        return;
    const WidgetPtr target = target_.lock();
    if (!target || engine_.pointer.hover() != target)
        return;
    const bool fade = time_ != AtOnce;
    show(textOf(engine_, *target), static_cast<float>(engine_.pointer.x()),
         static_cast<float>(engine_.pointer.y()) + PointerHeight, fade);
}

void ToolTips::show(const std::string& text, float x, float y, bool fade)
{
    time_ = 0;
    hide();
    DefaultToolTip& tip = requireWidget();
    tip.localX = x;
    tip.localY = y;
    tip.alpha = 1;
    tip.visibility = visibility::Overlapping;
    tip.setText(text);
    if (const ScreenPtr& screen = engine_.screens.current()) {
        moveTo(*screen);
        screen->markDirty();
    }
    if (fade)
        fade_ = createTween(
            engine_.tweens, FadeSeconds,
            {tween_item::from(), tween_item::value(&tip.alpha, 0.0F), tween_item::bindTo(widget_)});
}

void ToolTips::forgetTree(const Widget& root)
{
    if (root.contains(target_.lock().get())) {
        target_.reset();
        time_ = 0;
    }
    if (widget_ && root.contains(widget_.get())) {
        hide();
        takeOff();
    }
}

void ToolTips::setWidget(std::shared_ptr<DefaultToolTip> widget)
{
    hide();
    takeOff();
    widget_ = std::move(widget);
    if (widget_)
        widget_->visibility = visibility::Collapsed;
}

/// It shows on one screen at a time: the one that the pointer is on.
void ToolTips::moveTo(Screen& screen)
{
    if (widget_->parent == &screen)
        return;
    takeOff();
    screen.add(widget_);
}

void ToolTips::takeOff()
{
    auto* const former = widget_ ? dynamic_cast<Container*>(widget_->parent) : nullptr;
    if (former != nullptr)
        former->remove(widget_.get());
}

bool ToolTips::isShowing() const
{
    return widget_ && widget_->visibility != visibility::Collapsed;
}

DefaultToolTip& ToolTips::requireWidget()
{
    if (!widget_) {
        widget_ = std::make_shared<DefaultToolTip>();
        widget_->visibility = visibility::Collapsed;
    }
    return *widget_;
}

} // namespace nui
