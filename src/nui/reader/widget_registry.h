#pragma once

#include "nui/events/widget_events.h"

#include <memory>
#include <string_view>

namespace nui {

/// Makes widgets of one class. Registered ones live until the program ends.
class WidgetFactory {
public:
    WidgetFactory() = default;
    WidgetFactory(const WidgetFactory&) = delete;
    WidgetFactory& operator=(const WidgetFactory&) = delete;
    virtual ~WidgetFactory() = default;
    [[nodiscard]] virtual WidgetPtr create() = 0;
};

template <class T> class DefaultWidgetFactory : public WidgetFactory {
public:
    [[nodiscard]] WidgetPtr create() override { return std::make_shared<T>(); }
};

/// Classes are known by the hash of their name, without regard to ASCII case. Two names may
/// collide; the first registration wins, so a class cannot be replaced.
void registerWidgetClass(std::string_view className, std::unique_ptr<WidgetFactory> factory);

/// The toolkit's own classes, in a fixed order; a second call changes nothing.
void registerToolkitClasses();

/// Null for a class that isn't known, and for no name.
[[nodiscard]] WidgetPtr createWidget(const char* className);

} // namespace nui
