#include "inst/installer/ui/find_widget.h"

namespace nrd::installer::ui {

missing_widget::missing_widget(const std::string& owner, const std::string& name)
    : std::runtime_error("The layout of " + owner + " has no \"" + name +
                         "\" of the class that is needed.")
{
}

} // namespace nrd::installer::ui
