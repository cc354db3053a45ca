#pragma once

#include "nui/events/widget_events.h"

#include <cstdint>
#include <map>
#include <memory>

namespace nui {

class Engine;
class Screen;

using ScreenPtr = std::shared_ptr<Screen>;

/// The open screens by window id, and which of them GL draws into. Owned by the engine; for the
/// loop's thread.
class ScreenTable {
public:
    explicit ScreenTable(Engine& engine) : engine_(engine) {}

    /// A screen without a window is kept under 0, and dropped by the next draw. The window of
    /// its parent is disabled when this one is visible.
    void add(const ScreenPtr& screen);
    /// Hides and destroys the window, gives the keyboard back to the parent, and forgets every
    /// widget of the screen.
    void close(const ScreenPtr& screen);
    /// Takes a screen whose window is gone from the table.
    void drop(const ScreenPtr& screen);

    [[nodiscard]] ScreenPtr find(std::uint32_t windowId) const;
    /// The lowest window id's, or null.
    [[nodiscard]] ScreenPtr mainScreen() const;
    [[nodiscard]] const ScreenPtr& current() const { return current_; }
    /// Makes it the one that GL draws into, unless it is.
    void makeCurrent(const ScreenPtr& screen);
    void markAllDirty();
    /// A screen whose window is disabled got the focus: raises the one that is modal over it.
    void raiseModalOver(const ScreenPtr& screen);

    [[nodiscard]] const std::map<std::uint32_t, ScreenPtr>& all() const { return screens_; }
    [[nodiscard]] bool empty() const { return screens_.empty(); }
    /// The last screen has gone and none has come since: the next draw quits.
    [[nodiscard]] bool lastHasClosed() const { return lastHasClosed_; }

private:
    static void onPress(WidgetEvent& event);
    void releaseParent(Screen& screen);

    Engine& engine_;
    std::map<std::uint32_t, ScreenPtr> screens_;
    ScreenPtr current_;
    bool lastHasClosed_ = false;
};

} // namespace nui
