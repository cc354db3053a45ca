#include "vs/vs_installer/startup.h"

#include "misc/command_line.h"
#include "misc/file_system.h"
#include "misc/known_folders.h"
#include "misc/predicate_table.h"
#include "streams/installer_log.h"
#include "streams/streams.h"
#include "vs/vs_installer/locations.h"
#include "vs/vs_installer/obsolete_cutters.h"
#include "vs/vs_installer/package_search.h"

#include <SDL2/SDL.h>
#include <SDL2/SDL_image.h>
#include <utility>

namespace nrd::vs_installer {

using misc::to_text32;
using misc::to_utf8;

startup::startup(std::vector<std::string> args) : args_(std::move(args)) {}

startup_result startup::run()
{
    misc::parse_command_line(args_);
    // Before the log's folder is made: the first run on a machine has no log file.
    streams::set_stream_file("installer", true);
    installer_log("Starting VS5 install.");
    misc::predicate_table()["has_obsolete_cutter"] = has_obsolete_cutter;
    create_user_folders();
    log_arguments();
    if (!start_sdl()) {
        return startup_result::toolkit_failed;
    }
    find_locations();
    import_specs();
    if (specs.empty() || !configure_install_locations(specs.front())) {
        installer_log("Configuring install locations failed.");
        return startup_result::locations_not_configured;
    }
    return startup_result::ready;
}

void startup::create_user_folders()
{
    company_dir = misc::get_settings_folder() / "Tavrolen Corporation";
    for (const misc::path& folder : {company_dir / "log" / "installer",
                                     company_dir / "Velmora Studio 5", company_dir / "shared"}) {
        misc::create_directories(folder);
        installer_log(to_utf8(folder) + " created");
    }
}

void startup::log_arguments() const
{
    installer_log("Command line args:");
    for (const std::string& arg : args_) {
        installer_log(arg);
    }
}

bool startup::start_sdl()
{
    constexpr Uint32 everything = 0xF231;
    installer_log("SDL init.");
    if (SDL_Init(everything) < 0) {
        SDL_LogError(SDL_LOG_CATEGORY_APPLICATION, "Unable to initialize SDL");
        installer_log("SDL init fail.");
        installer_log(SDL_GetError());
        return false;
    }
    // A toolkit that gets less than it asks for draws all the same, so no result is looked at.
    IMG_Init(IMG_INIT_PNG);
    SDL_GL_SetAttribute(SDL_GL_RED_SIZE, 8);
    SDL_GL_SetAttribute(SDL_GL_GREEN_SIZE, 8);
    SDL_GL_SetAttribute(SDL_GL_BLUE_SIZE, 8);
    SDL_GL_SetAttribute(SDL_GL_STENCIL_SIZE, 8);
    SDL_GL_SetAttribute(SDL_GL_ACCELERATED_VISUAL, 1);
    return true;
}

void startup::find_locations()
{
    if (exe_path.empty()) {
        exe_path = misc::get_executable_path();
    }
    data_dir = exe_path.parent_path() / "resources";
    package_root = exe_path.parent_path().parent_path().parent_path().parent_path();
    installer_log("Data dir: " + to_utf8(data_dir));
    installer_log("Package root: " + to_utf8(package_root));
    xml_paths = find_install_xmls(package_root);
}

void startup::import_specs()
{
    installer_log(xml_paths.empty() ? "No xml to import." : "Importing xml specs.");
    for (const misc::path& path : xml_paths) {
        installer_log("Importing " + to_utf8(path));
        installation::import_result result = installation::import_install_xml(path);
        if (result.error) {
            xml_errors.push_back(*result.error);
        }
        specs.push_back(std::move(result.imported));
        specs.back().ensure_var(U"DESKTOP", to_text32(misc::get_desktop_folder()));
    }
}

} // namespace nrd::vs_installer
