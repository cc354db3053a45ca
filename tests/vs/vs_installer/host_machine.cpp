#include "vs/vs_installer/host_machine.h"

#include "misc/file_system.h"
#include "misc/registry.h"
#include "support/file_content.h"
#include "tools/sample_machine/tiny_program.h"

#include <stdexcept>

namespace nrd::vs_installer {

const std::string wow = "WOW6432Node\\";

namespace {

const std::string uninstall = "Microsoft\\Windows\\CurrentVersion\\Uninstall\\";
const std::string own_entry = "VS5 test ";
const char* const adobe_folders[] = {"C:\\Program Files\\Adobe", "C:\\Program Files (x86)\\Adobe"};
const std::string host_keys[] = {"Corel", "Adobe", wow + "Corel", wow + "Adobe"};

misc::text32 key_path(std::string_view key)
{
    return U"SOFTWARE\\" + misc::to_text32(key);
}

} // namespace

void host_machine::value(std::string_view key, std::string_view name, std::string_view data)
{
    misc::create_key(key_path(key));
    misc::set_string_value(key_path(key), misc::to_text32(name), misc::to_text32(data));
}

void host_machine::listed(std::string_view key, std::string_view name, const misc::path& location)
{
    const bool other = key.starts_with(wow);
    const std::string entry = (other ? wow : std::string()) + uninstall + own_entry +
                              std::string(key.substr(other ? wow.size() : 0));
    value(entry, "DisplayName", name);
    value(entry, "InstallLocation", misc::to_utf8(location));
}

void host_machine::illustrator(const misc::path& folder, int bits)
{
    test::write_file(folder / "Support Files\\Contents\\Windows\\Illustrator.exe",
                     sample_machine::tiny_program(bits));
}

host_machine::host_machine()
{
    for (const char* const folder : adobe_folders) {
        if (!misc::missing(folder)) {
            throw std::logic_error(std::string("tests would remove ") + folder);
        }
    }
    for (const std::string& key : host_keys) {
        if (misc::key_exists(key_path(key))) {
            throw std::logic_error("tests would remove the registry key " + key);
        }
    }
}

host_machine::~host_machine()
{
    for (const std::string& key : host_keys) {
        misc::delete_key(key_path(key));
    }
    for (const std::string& half : {std::string(), wow}) {
        for (const misc::text32& entry : misc::subkey_names(key_path(half + uninstall))) {
            if (misc::to_utf8(entry).starts_with(own_entry)) {
                misc::delete_key(key_path(half + uninstall) + entry);
            }
        }
    }
    for (const char* const folder : adobe_folders) {
        misc::error_code ec;
        misc::remove_all(folder, ec);
    }
}

} // namespace nrd::vs_installer
