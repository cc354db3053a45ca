#include "tools/uninstaller/uninstall.h"

#include "inst/installation/install_utils.h"
#include "inst/installation/parser.h"
#include "streams/installer_log.h"
#include "tools/uninstaller/removal.h"

namespace nrd::uninstaller {

bool uninstall(const misc::path& uninstall_xml)
{
    installer_log("Start of uninstall.");
    const installation::import_result file = installation::import_install_xml(uninstall_xml);
    if (file.error) {
        return false; // the import has logged why
    }
    const std::vector<std::string> running = installation::blocker_processes({file.imported});
    if (!running.empty()) {
        installer_log("Nothing is removed while this program runs: " + running.front());
        return false;
    }
    const removal_result result = remove_installation(file.imported);
    for (const std::string& each : result.left) {
        installer_log("Still there: " + each);
    }
    if (result.install_folder_is_shared) {
        installer_log("The install folder stays, since it holds folders of others.");
    }
    installer_log("Finished uninstall.");
    return result.left.empty() && !result.install_folder_is_shared;
}

} // namespace nrd::uninstaller
