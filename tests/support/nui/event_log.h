#pragma once

#include "nui/events/widget_events.h"

#include <map>
#include <string>

namespace nui::test {

/// Writes down what the listeners of some widgets hear: "TOUC name 1" a line, the number being
/// the phase. Must outlive the widgets' use of it.
class EventLog {
public:
    EventLog() = default;
    EventLog(const EventLog&) = delete;
    EventLog& operator=(const EventLog&) = delete;

    /// Listens for every type of the toolkit's on the widget.
    void listen(Widget& widget);
    /// The same, and lets the widget capture the pointer when it is pressed.
    void listenAndCapture(Widget& widget);
    /// What the widget does to the level of an event of that type.
    void stopAt(const std::string& name, EventType type, std::uint32_t level);

    /// What came since the last call.
    [[nodiscard]] std::string take();
    /// The same without what most tests don't ask for: moves, entering and leaving.
    [[nodiscard]] std::string takeWithoutHover();

private:
    static void note(WidgetEvent& event);
    static void capture(WidgetEvent& event);

    std::string text_;
    std::map<std::pair<std::string, EventType>, std::uint32_t> levels_;
};

} // namespace nui::test
