#include "inst/installer/core/install.h"

#include "inst/installation/exporter.h"
#include "inst/installer/core/file_installation.h"
#include "inst/installer/core/install_error.h"
#include "inst/installer/core/path_index.h"
#include "inst/installer/core/registry_records.h"
#include "inst/installer/core/staging.h"
#include "inst/installer/core/uninstall_data.h"
#include "misc/file_system.h"
#include "misc/known_folders.h"
#include "misc/shell.h"
#include "streams/installer_log.h"

#include <algorithm>
#include <stdexcept>

namespace nrd::installer::core {

using installation::installer_observer;
using installation::path_entry;
using installation::shortcut;
using installation::shortcut_verdict;
using installation::spec;
using misc::text32;
using misc::to_text32;
using misc::to_utf8;

namespace {

void configure_paths(spec& local)
{
    installer_log("Configuring paths.");
    local.ensure_var(U"START_MENU", to_text32(misc::get_common_programs_folder()));
}

bool is_for_this_system(const shortcut& each)
{
    return each.os == U"win" || each.os == U"all";
}

[[noreturn]] void throw_no_package()
{
    throw std::out_of_range("A shortcut needs a package, and the install.xml has none");
}

/// Makes the links, and adds each to `uninstall` so that it is removed again.
void create_shortcuts(const spec& work, spec& uninstall, installer_observer& observer)
{
    for (const shortcut& each : work.shortcuts) {
        if (!is_for_this_system(each)) {
            observer.decided(installation::shortcut_decision{each.location, each.destination,
                                                             shortcut_verdict::other_system});
            continue;
        }
        const text32 location = work.expand(each.location);
        const text32 destination = work.expand(each.destination);
        const text32 link = misc::create_shortcut(location, destination);
        observer.decided(installation::shortcut_decision{location, destination,
                                                         link.empty() ? shortcut_verdict::refused
                                                                      : shortcut_verdict::made});
        // A link that could not be made leaves a record too, with an empty `out`.
        if (uninstall.packages.empty()) {
            throw_no_package();
        }
        uninstall.packages.front().filesets.emplace_back(destination, link, text32());
    }
}

void add_path_index_entries(const spec& work, installer_observer& observer)
{
    for (const path_entry& each : work.path_entries) {
        const text32 app_code = work.expand(each.app_code);
        const text32 path = work.expand(each.path);
        observer.decided(installation::path_entry_decision{app_code, path});
        add_path_index_entry(app_code, path);
    }
}

/// The order of the steps is the order in which a half-finished run can stop. The registry comes
/// behind everything that fails in practice, so that no failed run is listed as installed, and
/// behind uninstall.xml, which holds every key that the run writes.
void install_paths(const spec& local, const install_directory& dir, installer_observer& observer)
{
    installer_log("Install paths start.");
    spec work = local;
    const text32 final_path = to_text32(dir.final_path);
    installer_log("Adding uninstall keys.");
    add_uninstall_keys(work, dir.final_path);
    installer_log("Creating uninstall spec.");
    spec uninstall = create_uninstall_spec(work, final_path);
    install_packs(work.packages, work, observer);
    installer_log("Creating uninstall bat file.");
    create_uninstall_bat(dir.final_path);
    create_shortcuts(work, uninstall, observer);
    // The line names the folder above the one that the file is written to.
    installer_log("Exporting uninstall spec: " + to_utf8(dir.install_path / "uninstall.xml"));
    installation::save_spec(uninstall, dir.install_path / "uninstaller.dir" / "uninstall.xml");
    installer_log("Installing reg keys.");
    install_reg_keys(work.reg_keys, work, observer);
    work.set_var(U"APP_INSTALL_PATH", final_path);
    add_path_index_entries(work, observer);
}

} // namespace

void check_spec(const spec& s)
{
    spec work = s;
    add_uninstall_keys(work, misc::path());
    if (work.packages.empty() &&
        std::any_of(work.shortcuts.begin(), work.shortcuts.end(), is_for_this_system)) {
        throw_no_package();
    }
}

std::vector<installation::package> packages_to_copy(const spec& s)
{
    std::vector<installation::package> packages;
    for (const installation::package& pack : s.packages) {
        if (judge_package(pack) == installation::package_verdict::installed) {
            packages.push_back({pack.name, "all", pack.bits, filesets_to_copy(pack, s)});
        }
    }
    return packages;
}

bool install(const spec& s, installer_observer& observer)
{
    installer_log("Start of install.");
    spec local = s;
    configure_paths(local);
    install_directory dir;
    try {
        dir = setup_install_directory(local);
        observer.decided(
            installation::staging_decision{dir.install_path, dir.backup_path,
                                           dir.backup_path && !misc::missing(*dir.backup_path)});
        install_paths(local, dir, observer);
    } catch (const install_error& e) {
        installer_log(std::string("Failed, install_error: ") + e.what());
        restore_backup(dir);
        return false;
    }
    // Outside of the try block: nothing that happens from here on brings the back-up back.
    finish_install_directory(dir);
    installer_log("Finished install.");
    return true;
}

} // namespace nrd::installer::core
