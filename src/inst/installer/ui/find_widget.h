#pragma once

#include "nui/reader/widget_pack.h"
#include "nui/widgets/container.h"

#include <stdexcept>
#include <string>

namespace nrd::installer::ui {

/// The layout files lack a widget that the wizard cannot do without, or have one of another class
/// under its name. The text names both.
class missing_widget : public std::runtime_error {
public:
    missing_widget(const std::string& owner, const std::string& name);
};

/// A checked cast. Throws missing_widget for null as well as for another class.
template <class T> T& require(nui::Widget* found, const std::string& owner, const std::string& name)
{
    auto* const fitting = dynamic_cast<T*>(found);
    if (fitting == nullptr) {
        throw missing_widget(owner, name);
    }
    return *fitting;
}

/// The widget of that name below the container.
template <class T> T& find_widget(nui::Container& owner, const std::string& name)
{
    return require<T>(owner.findByName(name), owner.name.empty() ? owner.id : owner.name, name);
}

/// The widget of that name among all that the layout files have.
template <class T>
T& find_widget(nui::WidgetPack& pack, const std::string& owner, const std::string& name)
{
    const auto found = pack.widgets.find(name);
    return require<T>(found == pack.widgets.end() ? nullptr : found->second.get(), owner, name);
}

} // namespace nrd::installer::ui
