#include "inst/installation/install_utils.h"

#include "misc/file_system.h"
#include "misc/processes.h"
#include "misc/registry.h"
#include "streams/installer_log.h"

#include <exception>

namespace nrd::installation {

using misc::to_text32;
using misc::to_utf8;

namespace {

bool is_for(const package& p, const std::string& os)
{
    return p.os == os || p.os == "all";
}

std::size_t count_source(const text32& in)
{
    const misc::path source = misc::to_path(std::u32string_view(in));
    if (misc::missing(source)) {
        return 0;
    }
    return misc::is_directory(source) ? misc::count_files_below(source) : 1;
}

text32 uninstall_key_of(const spec& s)
{
    return misc::uninstall_key(s.find_var(U"APP_NAME").value);
}

} // namespace

bool is_installed(const spec& s)
{
    installer_log("Checking for install.");
    const text32& name = s.find_var(U"APP_NAME").value;
    installer_log("Windows: " + to_utf8(name));
    const text32 key = misc::uninstall_key(name);
    const bool installed = misc::key_exists(key);
    if (!installed) {
        installer_log("Reg key not found.");
        return false;
    }
    installer_log("Reg key found: already installed.");
    try {
        misc::read_value(key, U"UninstallString");
    } catch (const std::exception&) {
        // The key alone decides, so a value that cannot be read takes nothing back.
        return true;
    }
    return true;
}

text32 install_location(const spec& s)
{
    return is_installed(s) ? misc::read_value(uninstall_key_of(s), U"InstallLocation") : text32();
}

std::size_t count_files(const std::vector<package>& packages, const std::string& os)
{
    installer_log("Counting files.");
    std::size_t count = 0;
    for (const package& each : packages) {
        if (is_for(each, os)) {
            for (const fileset& files : each.filesets) {
                count += count_source(files.in());
            }
        }
    }
    installer_log("Files: " + std::to_string(count));
    return count;
}

std::pair<std::size_t, std::size_t>
count_packages_and_filesets(const std::vector<package>& packages, const std::string& os)
{
    installer_log("Counting packages & filesets");
    std::size_t count = 0;
    std::size_t filesets = 0;
    for (const package& each : packages) {
        if (is_for(each, os)) {
            ++count;
            filesets += each.filesets.size();
        }
    }
    installer_log("Packages: " + std::to_string(count) + ", Filesets: " + std::to_string(filesets));
    return {count, filesets};
}

std::vector<std::string> blocker_processes(const specs& all)
{
    installer_log("Finding blocker processes list.");
    std::vector<std::string> running;
    for (const spec& each : all) {
        for (const block_process& process : each.block_processes) {
            const bool applies = process.os == "all" || process.os == "win";
            if (applies && misc::process_running(process.name)) {
                installer_log("Found: " + process.name);
                running.push_back(process.name);
            }
        }
    }
    return running;
}

void delete_reg_key(const reg_key& key)
{
    if (!misc::key_exists(key.path)) {
        return;
    }
    const text32 name = to_text32(std::string_view(key.name));
    if (name.empty()) {
        // The name is empty here, so the line shows nothing of the key.
        installer_log("Deleting reg key: " + key.name);
        misc::delete_key(key.path);
    } else if (misc::value_exists(key.path, name)) {
        installer_log("Deleting reg key vale: " + key.name + ", " + to_utf8(key.path));
        misc::delete_value(key.path, name, 1);
    }
}

} // namespace nrd::installation
