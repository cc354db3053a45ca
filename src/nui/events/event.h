#pragma once

#include "nui/events/event_types.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace nui {

enum class Phase : std::uint32_t { Broadcast = 0, AtTarget = 1, Bubbling = 2 };

/// How far an event may still go. The levels are ordered; any number between counts as well.
namespace stop_level {
constexpr std::uint32_t None = 0;
constexpr std::uint32_t EndsHitTest = 1;  ///< any value but 0 ends the walk of a hit test
constexpr std::uint32_t EndsBubble = 101; ///< from here on no ancestor hears of it
constexpr std::uint32_t Swallow = 102;    ///< from here on no further listener of the widget
} // namespace stop_level

/// What a listener is given. `Sender` is Widget or PopupMenuItem.
template <class Sender> class EventTemplate {
public:
    explicit EventTemplate(EventType eventType = plain_event::Activate) : type(eventType) {}
    EventTemplate(const EventTemplate&) = default;
    EventTemplate& operator=(const EventTemplate&) = default;
    virtual ~EventTemplate() = default;

    void stop(std::uint32_t level) { stopLevel = level; }
    /// No other listener and no default action: the event is used up.
    void consume()
    {
        stop(stop_level::Swallow);
        prevented = true;
    }

    Sender* source = nullptr; ///< where the event started
    Sender* target = nullptr; ///< who handles it now
    Phase phase = Phase::AtTarget;
    void* user = nullptr; ///< the user pointer of the listener that is being called
    std::uint32_t stopLevel = stop_level::None;
    bool prevented = false; ///< the default action is not wanted
    EventType type;
};

/// The listeners of one widget or menu item, called in the order of their subscription.
template <class Sender> class ListenerListOf {
public:
    using Event = EventTemplate<Sender>;
    using Function = void (*)(Event& event);

    explicit ListenerListOf(Sender* listOwner) : owner(listOwner) {}
    /// A copy is not being called.
    ListenerListOf(const ListenerListOf& other) : owner(other.owner), entries_(other.entries_)
    {
        dropRemoved();
    }
    ListenerListOf& operator=(const ListenerListOf&) = delete;
    ~ListenerListOf() = default;

    /// An equal entry is removed first, so that the new one stands last.
    void subscribe(EventType type, Function function, void* user)
    {
        const Entry added{type, function, user};
        removeIf([&added](const Entry& entry) { return entry == added; });
        entries_.push_back(added);
    }

    /// As subscribe(), but in front of the others. Not while the list is being called.
    void subscribeFirst(EventType type, Function function, void* user)
    {
        const Entry added{type, function, user};
        removeIf([&added](const Entry& entry) { return entry == added; });
        entries_.insert(entries_.begin(), added);
    }

    /// Removes every entry of the type and function, whatever its user pointer.
    void unsubscribe(EventType type, Function function)
    {
        removeIf(
            [=](const Entry& entry) { return entry.type == type && entry.function == function; });
    }

    /// Puts `to` where `from` is owner or user pointer: what a clone needs.
    void replaceSender(Sender* from, Sender* to)
    {
        owner = owner == from ? to : owner;
        for (Entry& entry : entries_)
            entry.user = entry.user == from ? to : entry.user;
    }

    /// Calls the listeners of the event's type until one swallows it. A listener may add entries,
    /// which are reached, and remove any.
    void call(Event& event)
    {
        const Call counted(*this); // listeners may throw
        for (std::size_t index = 0;
             index < entries_.size() && event.stopLevel < stop_level::Swallow; ++index) {
            const Entry entry = entries_[index];
            if (entry.type != event.type || entry.function == nullptr)
                continue;
            event.user = entry.user;
            entry.function(event);
        }
    }

    Sender* owner;

private:
    struct Entry {
        EventType type;
        Function function;
        void* user;

        bool operator==(const Entry&) const = default;
    };

    /// One call() that is under way, also if a listener throws.
    class Call {
    public:
        explicit Call(ListenerListOf& list) : list_(list) { ++list_.calls_; }
        Call(const Call&) = delete;
        Call& operator=(const Call&) = delete;
        ~Call()
        {
            if (--list_.calls_ == 0)
                list_.dropRemoved();
        }

    private:
        ListenerListOf& list_;
    };

    void dropRemoved()
    {
        std::erase_if(entries_, [](const Entry& entry) { return entry.function == nullptr; });
    }

    /// Entries keep their places while the list is being called.
    template <class Condition> void removeIf(Condition condition)
    {
        if (calls_ == 0) {
            std::erase_if(entries_, condition);
            return;
        }
        for (Entry& entry : entries_) {
            if (condition(entry))
                entry.function = nullptr;
        }
    }

    std::vector<Entry> entries_;
    int calls_ = 0; ///< how many call()s are under way
};

} // namespace nui
