#pragma once

#include "nui/events/widget_events.h"

#include <cstdint>
#include <memory>
#include <string>

namespace nui {

class CTween;
class DefaultToolTip;
class Engine;
class Screen;

/// When the tool tip shows, and for whom. Owned by the engine; for the loop's thread.
class ToolTips {
public:
    /// How long the pointer rests before the tool tip shows, in milliseconds.
    static constexpr std::uint64_t RestTime = 1000;
    /// Times that show it at the next step: the same text again without a fade, another with.
    static constexpr std::uint64_t AtOnce = 1;
    static constexpr std::uint64_t AtOnceFading = 2;

    explicit ToolTips(Engine& engine) : engine_(engine) {}

    /// Shows at that tick; 0 is never. The tool tip moves to `owner`, if given.
    void arm(std::uint64_t time, const std::shared_ptr<Screen>& owner = nullptr);
    /// The pointer came to a widget that has a tool tip.
    void aimAt(Widget& widget);
    /// The pointer moved: an armed rest begins anew.
    void restAgain();
    void clearTime() { time_ = 0; }
    void hide();
    /// Shows what is due at `now`.
    void step(std::uint64_t now);
    void show(const std::string& text, float x, float y, bool fade);
    void forgetTree(const Widget& root);

    /// For applications with a tool tip of their own.
    void setWidget(std::shared_ptr<DefaultToolTip> widget);
    [[nodiscard]] const std::shared_ptr<DefaultToolTip>& widget() const { return widget_; }
    [[nodiscard]] bool isShowing() const;

private:
    DefaultToolTip& requireWidget();
    void moveTo(Screen& screen);
    void takeOff();

    Engine& engine_;
    std::shared_ptr<DefaultToolTip> widget_;
    std::shared_ptr<CTween> fade_;
    std::weak_ptr<Widget> target_; ///< whom it is for
    std::uint64_t time_ = 0;
};

} // namespace nui
