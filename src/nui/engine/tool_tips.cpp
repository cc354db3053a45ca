#include "nui/engine/tool_tips.h"

#include "nui/engine/engine.h"
#include "nui/widgets/default_tool_tip.h"
#include "nui/widgets/screen.h"

namespace nui {

namespace {

constexpr float FadeSeconds = 0.4F;
/// Below the pointer's picture.
constexpr float PointerHeight = 32;

} // namespace

void ToolTips::arm(std::uint64_t time, const std::shared_ptr<Screen>& owner)
{
    time_ = time;
    DefaultToolTip& tip = requireWidget();
    const ScreenPtr screen =
        owner ? owner : (tip.parent == nullptr ? engine_.screens.current() : nullptr);
    if (screen && tip.parent != screen.get()) {
        if (auto* const former = dynamic_cast<Container*>(tip.parent))
            former->remove(&tip);
        screen->add(widget_);
    }
    if (time == 0) {
        if (Screen* const shown = tip.screen())
            shown->markDirty();
    }
}

void ToolTips::aimAt(Widget& widget)
{
    target_ = &widget;
    if (!isShowing())
        time_ = engine_.now() + RestTime;
    else
        time_ = widget_->text() == widget.toolTip ? AtOnce : AtOnceFading;
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
    if (time_ == 0 || now < time_ || !engine_.pointer.hover() ||
        engine_.pointer.hover().get() != target_)
        return;
    const bool fade = time_ != AtOnce;
    show(target_->toolTip, static_cast<float>(engine_.pointer.x()),
         static_cast<float>(engine_.pointer.y()) + PointerHeight, fade);
}

void ToolTips::show(const std::string& text, float x, float y, bool fade)
{
    time_ = 0;
    DefaultToolTip& tip = requireWidget();
    tip.localX = x;
    tip.localY = y;
    tip.alpha = 1;
    tip.visibility = visibility::Overlapping;
    tip.setText(text);
    const ScreenPtr& screen = engine_.screens.current();
    if (tip.parent == nullptr && screen)
        screen->add(widget_);
    if (Screen* const shown = tip.screen())
        shown->markDirty();
    if (fade)
        fade_ = createTween(
            engine_.tweens, FadeSeconds,
            {tween_item::from(), tween_item::value(&tip.alpha, 0.0F), tween_item::bindTo(widget_)});
}

void ToolTips::forgetTree(const Widget& root)
{
    if (root.contains(target_)) {
        target_ = nullptr;
        time_ = 0;
    }
    if (widget_ && root.contains(widget_.get())) {
        hide();
        if (auto* const former = dynamic_cast<Container*>(widget_->parent))
            former->remove(widget_.get());
    }
}

void ToolTips::setWidget(std::shared_ptr<DefaultToolTip> widget)
{
    hide();
    if (widget_) {
        if (auto* const former = dynamic_cast<Container*>(widget_->parent))
            former->remove(widget_.get());
    }
    widget_ = std::move(widget);
    if (widget_)
        widget_->visibility = visibility::Collapsed;
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
