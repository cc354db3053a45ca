#include "inst/installer/core/staging.h"

#include "inst/installation/install_path.h"
#include "inst/installation/install_utils.h"
#include "inst/installer/core/logged_call.h"
#include "misc/file_system.h"
#include "streams/installer_log.h"

#include <random>

namespace nrd::installer::core {

using misc::to_path;
using misc::to_text32;
using misc::to_utf8;

namespace {

constexpr std::size_t backup_suffix_length = 33;

misc::path final_install_path(const installation::spec& local)
{
    // The separator is added behind any text; where one stands already, they become one.
    const misc::text32 text = local.var_value(U"APP_INSTALL_PATH") + U"/";
    return to_path(std::u32string_view(installation::normalise_install_path(text)));
}

char32_t random_digit()
{
    constexpr std::u32string_view digits = U"0123456789abcdef";
    // Never destroyed: the worker may draw from it while the process ends.
    static auto* const engine = new std::mt19937(std::random_device{}());
    return digits[std::uniform_int_distribution<std::size_t>(0, digits.size() - 1)(*engine)];
}

void move_aside(const misc::path& from, const misc::path& to)
{
    installer_log("backup path: " + to_utf8(to));
    // A failed renaming is not acted on: the run goes on into the old folder.
    logged_call("rename", {from, to}, [&](auto& ec) { misc::rename(from, to, ec); });
}

} // namespace

install_directory setup_install_directory(installation::spec& local)
{
    installer_log("Setting up install directory.");
    install_directory dir;
    dir.final_path = final_install_path(local);
    installer_log("Final install path: " + to_utf8(dir.final_path));
    const bool installed = installation::is_installed(local);
    installer_log(installed ? "installation already exists" : "installation does not exist");
    // A folder that the registry knows nothing of stays where it is, and is copied over.
    if (installed && !misc::missing(dir.final_path)) {
        dir.backup_path = unique_backup_path(dir.final_path);
        move_aside(dir.final_path, *dir.backup_path);
    }
    dir.install_path = dir.final_path;
    installer_log("Installing path: " + to_utf8(dir.install_path));
    misc::create_directories(dir.install_path);
    local.set_var(U"APP_INSTALL_PATH", to_text32(dir.install_path));
    installer_log("Setup install directory.");
    return dir;
}

void finish_install_directory(const install_directory& dir)
{
    if (dir.backup_path) {
        const misc::path& backup = *dir.backup_path;
        installer_log("Removing backup path: " + to_utf8(backup));
        logged_call("remove_all", {backup}, [&](auto& ec) { misc::remove_all(backup, ec); });
    }
    if (dir.install_path != dir.final_path) {
        installer_log("Renaming to final install path.");
        logged_call("rename", {dir.install_path, dir.final_path},
                    [&](auto& ec) { misc::rename(dir.install_path, dir.final_path, ec); });
    }
}

void restore_backup(const install_directory& dir)
{
    if (!dir.backup_path) {
        return;
    }
    const misc::path& backup = *dir.backup_path;
    installer_log("Restoring backup path: " + to_utf8(backup));
    logged_call("remove_all", {dir.install_path},
                [&](auto& ec) { misc::remove_all(dir.install_path, ec); });
    misc::text32 old_text = to_text32(backup);
    if (old_text.size() >= backup_suffix_length) {
        old_text.resize(old_text.size() - backup_suffix_length);
    }
    const misc::path old_path = to_path(std::u32string_view(old_text));
    logged_call("rename", {backup, old_path},
                [&](auto& ec) { misc::rename(backup, old_path, ec); });
}

misc::path unique_backup_path(const misc::path& final_path)
{
    misc::text32 text = to_text32(misc::canonical(final_path)) + U"_";
    for (std::size_t i = 1; i < backup_suffix_length; ++i) {
        text += random_digit();
    }
    return to_path(std::u32string_view(text));
}

} // namespace nrd::installer::core
