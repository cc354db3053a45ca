#include "vs/vs_installer/locations.h"

#include "misc/file_system.h"
#include "misc/known_folders.h"
#include "misc/system_info.h"
#include "streams/installer_log.h"
#include "vs/vs_installer/hosts.h"

#include <algorithm>
#include <optional>
#include <stdexcept>

namespace nrd::vs_installer {

using installation::fileset;
using installation::package;
using installation::spec;
using misc::text32;
using misc::to_utf8;

namespace {

/// What the process is asked of itself. Both answers come from one test and never differ in a
/// 32-bit program.
struct word_sizes {
    bool wow = false;  ///< the process runs under WOW64
    bool os64 = false; ///< Windows is 64-bit
};

word_sizes ask_word_sizes()
{
    const bool answer = misc::runs_under_wow64();
    installer_log("WOW proc: " + std::to_string(answer));
    installer_log("64-bit proc: " + std::to_string(answer));
    return {answer, answer};
}

void set_corel_dll_paths(spec& s, const char* heading, const text32& path_32, const text32& path_64)
{
    installer_log(heading);
    s.add_var({U"COREL_DLL_INSTALL_PATH_32", path_32});
    if (!path_64.empty()) {
        s.add_var({U"COREL_DLL_INSTALL_PATH_64", path_64});
    }
}

[[noreturn]] void throw_too_few(const std::string& what)
{
    throw std::out_of_range("The install.xml has " + what);
}

void remove_first_fileset(spec& s, std::size_t position)
{
    if (position >= s.packages.size()) {
        throw_too_few("only " + std::to_string(s.packages.size()) +
                      " packages; the first four have fixed places");
    }
    std::vector<fileset>& filesets = s.packages[position].filesets;
    if (filesets.empty()) {
        throw_too_few("no fileset in package " + std::to_string(position) +
                      ", which begins with one for 32-bit Windows");
    }
    filesets.erase(filesets.begin());
}

void remove_first_package(spec& s)
{
    if (s.packages.empty()) {
        throw_too_few("fewer than two packages; the first two are those for 64-bit Windows");
    }
    s.packages.erase(s.packages.begin());
}

/// The packages have a meaning by their places alone: the first two are for 64-bit Windows, and the
/// next two begin with a fileset for 32-bit Windows.
void configure_word_size(spec& s, const word_sizes& sizes)
{
    if (!sizes.os64) {
        set_corel_dll_paths(s, "32 bit COREL installer running on 32 bit Windows.",
                            U"C:\\Windows\\System32", U"");
        installer_log("Preventing 64 bit install.");
        remove_first_package(s);
        remove_first_package(s);
        return;
    }
    // SysNative is the name by which a 32-bit process reaches the real system folder.
    if (sizes.wow) {
        set_corel_dll_paths(s, "32 bit COREL installer running on 64 bit Windows.",
                            U"C:\\Windows\\SysWOW64", U"C:\\Windows\\SysNative");
    } else {
        set_corel_dll_paths(s, "64 bit COREL installer running on 64 bit Windows.",
                            U"C:\\Windows\\SysWOW64", U"C:\\Windows\\System32");
    }
    installer_log("Preventing 32 bit install.");
    remove_first_fileset(s, 2);
    remove_first_fileset(s, 3);
}

/// Takes the marker of the word size, and all behind it, off a name.
void cut_bits_marker(text32& name)
{
    const std::size_t at = std::min(name.find(U" (64 Bit)"), name.find(U" (32 Bit)"));
    if (at != name.npos) {
        name.resize(at);
    }
}

/// The first record takes the product's older entry out of the launcher: its binary_data makes the
/// install delete the value.
void add_launcher_keys(spec& s, const text32& key)
{
    s.reg_keys.push_back({key, "Velmora Studio 5", U"", {0}});
    s.reg_keys.push_back(
        {key,
         "Send to Velmora Studio 5",
         U"${APP_INSTALL_PATH}\\corel_export_launcher.dir\\corel_export_launcher.exe",
         {}});
    s.reg_keys.push_back(
        {key,
         "Registration Marks (VS5)",
         U"${APP_INSTALL_PATH}\\corel_regmarks_launcher.dir\\corel_regmarks_launcher.exe",
         {}});
}

void add_corel_keys(spec& s, bool os64)
{
    installer_log("Adding Corel reg keys.");
    if (os64) {
        add_launcher_keys(s, U"SOFTWARE\\WOW6432Node\\Corel\\AppLauncher");
    }
    add_launcher_keys(s, U"SOFTWARE\\Corel\\AppLauncher");
}

/// Every `${...}` of the text, each up to the next "}", without its marks.
std::vector<text32> var_names(const text32& text)
{
    std::vector<text32> names;
    std::size_t at = 0;
    while ((at = text.find(U"${", at)) != text.npos) {
        const std::size_t begin = at + 2;
        const std::size_t end = text.find(U'}', begin);
        // The dot of the expression that this stands for matches no line end.
        const std::size_t line_end = text.find_first_of(U"\n\r\u2028\u2029", begin);
        if (end == text.npos) {
            break;
        }
        if (line_end < end) {
            at = begin;
            continue;
        }
        names.push_back(text.substr(begin, end - begin));
        at = end + 1;
    }
    return names;
}

bool is_corel(const text32& version)
{
    return version.starts_with(U"CorelDRAW");
}

const host_app* find_host(const std::vector<host_app>& hosts, const text32& version)
{
    const auto found = std::find_if(hosts.begin(), hosts.end(), [&version](const host_app& each) {
        return each.name + (each.is_32_bit ? U" 32" : U" 64") == version;
    });
    return found == hosts.end() ? nullptr : &*found;
}

void define_host_var(spec& s, const host_app& host, const text32& version)
{
    installer_log("Match found: " + to_utf8(host.path));
    const text32 value = is_corel(version) ? host.path : host.path + U"/Plug-ins";
    const std::string both = to_utf8(version) + ", " + to_utf8(value);
    if (s.has_var(version)) {
        installer_log("Updating var: " + both);
        s.set_var(version, value);
    } else {
        installer_log("Adding var: " + both);
        s.add_var({version, value});
    }
}

/// A fileset whose `out` names one host, which no variable stands for yet, gets that host's folder,
/// or, if the host is absent, no destination at all.
void configure_fileset(spec& s, fileset& files, const std::vector<host_app>& hosts)
{
    if (files.out().empty() || s.expand(files.out()) != files.out()) {
        return;
    }
    const std::vector<text32> names = var_names(files.out());
    installer_log("No of Var names: " + std::to_string(names.size()));
    if (names.size() != 1) {
        installer_log("Skipping.");
        return;
    }
    const text32& version = names.front();
    installer_log("Version: " + to_utf8(version));
    if (!version.starts_with(U"Adobe Illustrator ") && !is_corel(version)) {
        return;
    }
    if (const host_app* const host = find_host(hosts, version)) {
        define_host_var(s, *host, version);
    } else {
        files.set_out(U"");
    }
}

void configure_packages(spec& s, const std::vector<host_app>& hosts)
{
    installer_log("Adding packages info.");
    for (package& pack : s.packages) {
        if (pack.os == "mac") {
            installer_log("Skipping Mac package.");
            continue;
        }
        installer_log("Adding package files.");
        for (fileset& files : pack.filesets) {
            configure_fileset(s, files, hosts);
        }
    }
}

void configure_product(spec& s, const word_sizes& sizes)
{
    installer_log("Making VS5 for Windows spec.");
    configure_word_size(s, sizes);
    std::vector<host_app> hosts = find_adobe_hosts(true);
    for (host_app& each : hosts) {
        cut_bits_marker(each.name);
    }
    const std::vector<host_app> corel_hosts = find_corel_hosts();
    hosts.insert(hosts.end(), corel_hosts.begin(), corel_hosts.end());
    if (!corel_hosts.empty()) {
        add_corel_keys(s, sizes.os64);
    }
    configure_packages(s, hosts);
}

} // namespace

bool configure_install_locations(spec& s)
{
    installer_log("Configuring install locations.");
    installer_log("Making Windows spec.");
    const word_sizes sizes = ask_word_sizes();
    installer_log("Setting default program dir to C:\\Program Files");
    s.set_var(U"DEFAULT_PROGRAM_DIRECTORY", U"C:\\Program Files\\");
    if (s.find_var(U"INSTALLER_CODE").value == U"VS5") {
        configure_product(s, sizes);
    }
    installer_log("Final spec: " + to_utf8(s.to_text()));
    misc::create_directories(misc::get_program_data_folder() / "Tavrolen Corporation");
    return true;
}

} // namespace nrd::vs_installer
