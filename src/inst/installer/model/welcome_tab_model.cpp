#include "inst/installer/model/welcome_tab_model.h"

#include "inst/installation/install_path.h"
#include "inst/installer/model/installer_app.h"
#include "misc/file_system.h"
#include "streams/installer_log.h"

#include <string_view>

namespace nrd::installer::model {

using misc::to_text32;
using misc::to_utf8;

namespace {

misc::path path_of(const std::string& utf8)
{
    return misc::to_path(std::string_view(utf8));
}

} // namespace

welcome_tab_model::welcome_tab_model(installer_app& shared) : app(&shared)
{
    installer_log("Welcome Tab setting install path.");
    install_path.set(to_utf8(app->get_specs().at(0).var_value(U"APP_INSTALL_PATH")));
}

misc::path welcome_tab_model::default_browse_path() const
{
    installer_log("Welcome Tab default browse path.");
    misc::path folder = path_of(install_path.get());
    const misc::text32 name = app->get_specs().at(0).app_name();
    if (folder.filename() == misc::to_path(std::u32string_view(name))) {
        installer_log("Default path is parent path.");
        folder = folder.parent_path();
    }
    if (!misc::missing(folder)) {
        return folder;
    }
    installer_log("Default path is root path.");
    return folder.root_path();
}

void welcome_tab_model::take_picked_folder(const misc::path& picked)
{
    const misc::text32 name = app->get_specs().at(0).app_name();
    install_path.set(to_utf8(picked / misc::to_path(std::u32string_view(name))));
}

bool welcome_tab_model::accept_install_path()
{
    // Refused without a word: whoever chose the folder sees that the page stays.
    if (!installation::is_valid_install_path(path_of(install_path.get()))) {
        return false;
    }
    installer_log("Valid filepath selected.");
    install_path.set(to_utf8(misc::replace_separators(to_text32(install_path.get()))));
    install_path.set(to_utf8(misc::collapse_repeated(to_text32(install_path.get()), U'\\')));
    for (installation::spec& each : app->get_specs()) {
        each.set_var(U"APP_INSTALL_PATH", to_text32(install_path.get()));
    }
    return true;
}

} // namespace nrd::installer::model
