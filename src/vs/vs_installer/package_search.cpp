#include "vs/vs_installer/package_search.h"

#include "misc/file_system.h"
#include "streams/installer_log.h"

#include <string>

namespace nrd::vs_installer {

using misc::to_utf8;

namespace {

constexpr int most_numbered_folders = 999;

} // namespace

std::optional<misc::path> find_install_xml(const misc::path& search_root, const misc::path& folder)
{
    const misc::path p = search_root / folder;
    installer_log("Searching " + to_utf8(p) + " for install.xml");
    if (!misc::missing(p)) {
        installer_log("Searching children.");
        for (const misc::path& entry : misc::directory_entries(p)) {
            const misc::path candidate = entry / "install.xml";
            if (misc::is_directory(entry) && !misc::missing(candidate)) {
                installer_log("install.xml found at: " + to_utf8(candidate));
                return candidate;
            }
        }
    }
    installer_log("install.xml not found");
    return std::nullopt;
}

std::vector<misc::path> find_install_xmls(const misc::path& package_root)
{
    std::vector<misc::path> found;
    for (int i = 0; i < most_numbered_folders; ++i) {
        const auto path = find_install_xml(package_root, misc::to_path(std::to_string(i)));
        if (!path) {
            break;
        }
        found.push_back(*path);
    }
    return found;
}

} // namespace nrd::vs_installer
