#include "vs/vs_installer/hosts.h"

#include "misc/file_system.h"
#include "misc/processes.h"
#include "misc/registry.h"
#include "misc/system_info.h"
#include "streams/installer_log.h"

#include <algorithm>
#include <map>
#include <optional>
#include <stdexcept>

namespace nrd::vs_installer {

using misc::text32;
using misc::to_path;
using misc::to_text32;
using misc::to_utf8;

namespace {

using hosts = std::vector<host_app>;

const text32 illustrator_tail = U"\\Support Files\\Contents\\Windows\\Illustrator.exe";

/// The two halves in which a 64-bit Windows keeps 64-bit and 32-bit programs. On a 32-bit Windows
/// both are the same, and every host is found twice.
enum class flavour { native, wow };
constexpr flavour flavours[] = {flavour::native, flavour::wow};

bool is_separate_half(flavour f)
{
    return f == flavour::wow && misc::is_64bit_windows();
}

text32 software_prefix(flavour f)
{
    return is_separate_half(f) ? U"SOFTWARE\\WOW6432Node\\" : U"SOFTWARE\\";
}

bool contains(const text32& text, std::u32string_view part)
{
    return text.find(part) != text.npos;
}

bool is_there(const text32& path)
{
    return !misc::missing(to_path(std::u32string_view(path)));
}

void log_hosts(const char* heading, const hosts& list)
{
    installer_log(heading);
    for (const host_app& each : list) {
        installer_log("Name: " + to_utf8(each.name) + ", Path: " + to_utf8(each.path));
    }
}

hosts find_corel_flavour(flavour f)
{
    const text32 key = software_prefix(f) + U"Corel\\Setup";
    installer_log("Finding Corel versions.");
    hosts found;
    for (const text32& subkey : misc::subkey_names(key)) {
        if (!contains(subkey, U"CorelDRAW Graphics Suite ")) {
            installer_log("Corel not found.");
            continue;
        }
        const text32 destination = misc::read_value(key + U"\\" + subkey, U"Destination");
        if (!destination.empty()) {
            // The value ends in a separator; where it does not, the host counts as 32-bit.
            const bool is_32_bit = !is_there(destination + U"Programs64");
            found.push_back({subkey, subkey, destination, is_32_bit});
        }
    }
    log_hosts("Found Corel installations:", found);
    return found;
}

/// The program's file for a host at `path`, which may be the common folder of several; empty if
/// there is none.
text32 illustrator_exe(const text32& path, const text32& name)
{
    for (const text32& exe : {path + illustrator_tail, path + U"\\" + name + illustrator_tail}) {
        if (is_there(exe)) {
            return exe;
        }
    }
    return {};
}

hosts read_uninstall_list(flavour f)
{
    const text32 key = software_prefix(f) + U"Microsoft\\Windows\\CurrentVersion\\Uninstall";
    hosts found;
    for (const text32& subkey : misc::subkey_names(key)) {
        std::map<text32, text32> values =
            misc::read_values(key + U"\\" + subkey, {U"DisplayName", U"InstallLocation"});
        if (!values[U"DisplayName"].empty() && !values[U"InstallLocation"].empty()) {
            found.push_back({subkey, values[U"DisplayName"], values[U"InstallLocation"], false});
        }
    }
    return found;
}

void add_from_uninstall_list(hosts& possible)
{
    for (const flavour f : flavours) {
        for (host_app& each : read_uninstall_list(f)) {
            if (!contains(each.name, U"Adobe Illustrator")) {
                continue;
            }
            const text32 deeper = each.path + U"\\" + each.name;
            if (is_there(each.path + illustrator_tail)) {
                possible.push_back(each);
            } else if (is_there(deeper + illustrator_tail)) {
                each.path = deeper;
                possible.push_back(each);
            }
        }
    }
}

/// The folder of the shortcut that Illustrator keeps beside Bridge, if it is there.
std::optional<text32> folder_with_link(const misc::path& adobe_folder, const text32& name)
{
    const misc::path folder = adobe_folder / to_path(std::u32string_view(name));
    const bool found = !misc::missing(folder / to_path(std::u32string_view(name + U".lnk")));
    return found ? std::optional(to_text32(folder)) : std::nullopt;
}

std::optional<host_app> find_beside_bridge(const text32& bridge_key, const text32& version)
{
    const text32 installer_key = bridge_key + U"\\" + version + U"\\Installer";
    if (!misc::key_exists(installer_key)) {
        return std::nullopt;
    }
    const text32 install_path = misc::read_value(installer_key, U"InstallPath");
    if (install_path.empty()) {
        return std::nullopt;
    }
    const misc::path bridge_folder = to_path(std::u32string_view(install_path));
    const text32 folder_name = to_text32(bridge_folder.filename());
    const std::size_t version_at = folder_name.find(version);
    if (version_at == folder_name.npos) {
        return std::nullopt;
    }
    for (const text32& tail : {folder_name.substr(version_at), version}) {
        const text32 name = U"Adobe Illustrator " + tail;
        if (const auto folder = folder_with_link(bridge_folder.parent_path(), name)) {
            return host_app{version, name, *folder, false};
        }
    }
    return std::nullopt;
}

void add_from_bridge(hosts& possible)
{
    for (const flavour f : flavours) {
        const text32 key = software_prefix(f) + U"Adobe\\Adobe Bridge";
        if (!misc::key_exists(key)) {
            continue;
        }
        for (const text32& version : misc::subkey_names(key)) {
            if (const std::optional<host_app> found = find_beside_bridge(key, version)) {
                possible.push_back(*found);
            }
        }
    }
}

void add_from_program_folders(hosts& possible)
{
    for (const flavour f : flavours) {
        const misc::path folder(is_separate_half(f) ? "C:\\Program Files (x86)\\Adobe\\"
                                                    : "C:\\Program Files\\Adobe\\");
        if (misc::missing(folder)) {
            continue;
        }
        for (const misc::path& entry : misc::directory_entries(folder)) {
            const text32 name = to_text32(entry.filename());
            const bool known =
                std::any_of(possible.begin(), possible.end(),
                            [&name](const host_app& each) { return each.name == name; });
            if (contains(name, U"Adobe Illustrator ") && !known) {
                possible.push_back({name, name, to_text32(entry), false});
            }
        }
    }
}

} // namespace

std::vector<host_app> find_corel_hosts()
{
    hosts found;
    for (const flavour f : flavours) {
        const hosts part = find_corel_flavour(f);
        found.insert(found.end(), part.begin(), part.end());
    }
    return found;
}

std::vector<host_app> find_adobe_hosts(bool)
{
    installer_log("Finding Adobe versions.");
    hosts possible;
    add_from_uninstall_list(possible);
    add_from_bridge(possible);
    add_from_program_folders(possible);
    log_hosts("Found possible Adobe installations:", possible);

    hosts accepted;
    for (host_app& each : possible) {
        const text32 exe = illustrator_exe(each.path, each.name);
        if (!exe.empty()) {
            each.is_32_bit = exe_is_32_bit(to_path(std::u32string_view(exe)));
            accepted.push_back(each);
        }
    }
    log_hosts("Accepted Adobe installations:", accepted);
    if (accepted.empty()) {
        installer_log("Adobe not found.");
    }
    return accepted;
}

bool exe_is_32_bit(const misc::path& path)
{
    if (misc::missing(path)) {
        throw std::invalid_argument("Executable not found " + to_utf8(path));
    }
    const std::optional<std::uint32_t> type = misc::query_binary_type(path);
    if (!type) {
        throw std::invalid_argument("Not an executable " + to_utf8(path));
    }
    if (*type != misc::binary_type_32bit && *type != misc::binary_type_64bit) {
        throw std::invalid_argument("Executable not 32 or 64 bit" + to_utf8(path));
    }
    return *type == misc::binary_type_32bit;
}

} // namespace nrd::vs_installer
