#include "misc/known_folders.h"

#include "misc/host_file_system.h"
#include "misc/posix/machine.h"

#include <boost/filesystem/operations.hpp>

namespace nrd::misc {

namespace {

path profile()
{
    return path("C:\\Users") / to_path(std::string_view(this_machine().user));
}

} // namespace

path query_known_folder(known_folder folder)
{
    switch (folder) {
    case known_folder::roaming:
        return profile() / "AppData\\Roaming";
    case known_folder::local:
        return profile() / "AppData\\Local";
    case known_folder::desktop:
        return profile() / "Desktop";
    case known_folder::documents:
        return profile() / "Documents";
    case known_folder::profile:
        return profile();
    case known_folder::program_data:
        return "C:\\ProgramData";
    case known_folder::program_files:
        return this_machine().bits == 64 ? "C:\\Program Files (x86)" : "C:\\Program Files";
    case known_folder::fonts:
        return "C:\\Windows\\Fonts";
    case known_folder::common_programs:
        return "C:\\ProgramData\\Microsoft\\Windows\\Start Menu\\Programs";
    case known_folder::system:
        return "C:\\Windows\\system32";
    case known_folder::windows:
        break;
    }
    return "C:\\Windows";
}

path get_executable_path()
{
    error_code ec;
    const boost::filesystem::path host = boost::filesystem::read_symlink("/proc/self/exe", ec);
    return ec ? path() : from_host(host);
}

} // namespace nrd::misc
