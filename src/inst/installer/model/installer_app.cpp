#include "inst/installer/model/installer_app.h"

#include "inst/installation/install_utils.h"
#include "inst/installer/core/install.h"
#include "misc/file_system.h"
#include "streams/installer_log.h"

namespace nrd::installer::model {

misc::text32 installer_app::name() const
{
    installer_log("Installer App getting name.");
    return specs_.at(0).var_value(U"APP_NAME");
}

bool installer_app::is_installed() const
{
    installer_log("Installer already installed.");
    return installation::is_installed(specs_.at(0));
}

misc::text32 installer_app::installed_location() const
{
    installer_log("Installer already installed location.");
    return installation::install_location(specs_.at(0));
}

bool installer_app::change_permissions() const
{
    installer_log("Installer App changing permissions.");
    return true;
}

void installer_app::install()
{
    installer_log("Installer App install start.");
    for (const installation::spec& each : specs_) {
        installer_log("Installer App set password and install.");
        const misc::scoped_current_path folder(each.working_directory);
        core::install(each, observer_);
    }
    installer_log("Installer App install complete.");
}

} // namespace nrd::installer::model
