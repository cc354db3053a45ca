#include "inst/installer/ui/installer_window.h"

#include "inst/installer/model/installer_app.h"
#include "inst/installer/model/installer_window_model.h"
#include "inst/installer/ui/find_widget.h"
#include "nui/widgets/pages_container.h"
#include "shared/ui/first_keys.h"
#include "streams/installer_log.h"

namespace nrd::installer::ui {

installer_window::installer_window(model::installer_window_model& shared) : model_(&shared) {}

nui::WidgetPtr installer_window::cloneObject() const
{
    installer_log("Installer window widget cloning.");
    nui::WidgetPtr copy = Cloneable::cloneObject();
    installer_log("Installer window widget cloned.");
    return copy;
}

model::installer_app& installer_window::app() const
{
    return *model_->app;
}

void installer_window::init(nui::WidgetPack& pack, nui::WidgetMap& /*widgets*/)
{
    installer_log("Installer window initialising.");
    auto& pages = find_widget<nui::PagesContainer>(pack, "installer_main", "tab_holder");
    // A page whose file is missing or faulty would only be noticed when it is to be shown.
    for (const char* const page : {"welcome_main", "installing_main", "end_main"}) {
        require<nui::Container>(pages.findChild(page).get(), "tab_holder", page);
    }
    pages.show("welcome_main");
    shared::ui::letKeysBegin(*this);
    setTitle("Install " + misc::to_utf8(app().name()));
    installer_log("Installer window initialised.");
}

} // namespace nrd::installer::ui
