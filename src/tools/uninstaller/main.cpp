#include "misc/known_folders.h"
#include "streams/installer_log.h"
#include "tools/uninstaller/uninstall.h"

#include <exception>

// uninstall.bat starts a temporary copy of this program with the switch "--nrd", waits for it, and
// removes the install folder if the exit code is 0. The switch changes nothing.
int main()
{
    try {
        const nrd::misc::path folder = nrd::misc::get_executable_path().parent_path();
        return nrd::uninstaller::uninstall(folder / "uninstall.xml") ? 0 : 1;
    } catch (const std::exception& error) {
        installer_log(std::string("Uninstall failed: ") + error.what());
        return 1;
    }
}
