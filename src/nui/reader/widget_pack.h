#pragma once

#include "nui/events/widget_events.h"

#include <map>
#include <memory>
#include <string>

namespace nui {

class PopupMenu;

using PopupMenuPtr = std::shared_ptr<PopupMenu>;
using WidgetMap = std::map<std::string, WidgetPtr>;

/// What a layout file gives. `widgets` also holds, under "-", the widget that was built last.
struct WidgetPack {
    WidgetMap widgets;
    std::map<std::string, PopupMenuPtr> menus;
    std::map<std::string, std::string> constants;
    std::map<std::string, std::string> theme;
};

/// A widget that finds its partners once the whole file is there. Of a file's widgets with an
/// id the last one that is a ModuleInit is called.
class ModuleInit {
public:
    ModuleInit() = default;
    ModuleInit(const ModuleInit&) = default;
    ModuleInit& operator=(const ModuleInit&) = default;
    virtual ~ModuleInit() = default;
    /// `widgets` is the map that the caller of the load asked to be filled, else the pack's.
    virtual void init(WidgetPack& pack, WidgetMap& widgets) = 0;
};

} // namespace nui
