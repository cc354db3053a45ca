#include "support/nui/event_log.h"

#include "nui/events/dispatch.h"
#include "nui/widgets/widget.h"

#include <array>
#include <sstream>
#include <utility>

namespace nui::test {

namespace {

constexpr std::array Types = {plain_event::Activate,
                              plain_event::ScrolledByUser,
                              plain_event::ScrollChanged,
                              plain_event::WindowOpening,
                              touch::Press,
                              touch::Move,
                              touch::EnterSelf,
                              touch::LeaveSelf,
                              touch::Enter,
                              touch::Leave,
                              touch::Release,
                              touch::DoubleClick,
                              touch::Click,
                              touch::Wheel,
                              keyboard::FocusGained,
                              keyboard::FocusLost,
                              keyboard::Down,
                              keyboard::Up,
                              text::Committed,
                              text::Composing,
                              text::Changed,
                              text::Pasting,
                              window::Resizing,
                              window::Resized,
                              window::Closing,
                              TimerDue,
                              FilesDropped,
                              tween_event::Started,
                              tween_event::Ended};

std::string nameOf(EventType type)
{
    if (type < 0x100)
        return std::to_string(type);
    std::string tag;
    for (; type != 0; type >>= 8U)
        tag += static_cast<char>(type & 0xFFU);
    if (tag == "_OUC")
        return "double";
    return tag == "cOUC" ? "click" : tag;
}

} // namespace

void EventLog::listen(Widget& widget)
{
    for (const EventType type : Types)
        subscribe(widget, type, note, this);
}

void EventLog::listenAndCapture(Widget& widget)
{
    listen(widget);
    subscribe(widget, touch::Press, capture, this);
}

void EventLog::stopAt(const std::string& name, EventType type, std::uint32_t level)
{
    levels_[{name, type}] = level;
}

void EventLog::note(WidgetEvent& event)
{
    auto& log = *static_cast<EventLog*>(event.user);
    log.text_ += nameOf(event.type) + " " + event.target->name + " " +
                 std::to_string(static_cast<int>(event.phase)) + "\n";
    const auto level = log.levels_.find({event.target->name, event.type});
    if (level != log.levels_.end())
        event.stop(level->second);
}

void EventLog::capture(WidgetEvent& event)
{
    static_cast<TouchEvent&>(event).capture();
}

std::string EventLog::take()
{
    return std::exchange(text_, "");
}

std::string EventLog::takeWithoutHover()
{
    std::istringstream lines(take());
    std::string kept;
    for (std::string line; std::getline(lines, line);) {
        const std::string tag = line.substr(0, 4);
        if (tag != "UOUC" && tag != "VOUC" && tag != "WOUC" && tag != "XOUC" && tag != "YOUC")
            kept += line + "\n";
    }
    return kept;
}

} // namespace nui::test
