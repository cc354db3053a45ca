#include "tools/setup_unattended/install_folder.h"

#include "inst/installation/install_path.h"
#include "inst/installation/variables.h"
#include "misc/file_system.h"
#include "misc/known_folders.h"

#include <algorithm>
#include <string>
#include <vector>

namespace nrd::tools {

using misc::text32;

namespace {

/// False for "." and "..", which would lead past every comparison of folders.
bool has_plain_names_only(const text32& text)
{
    const std::vector<text32> names = misc::split(text, U'\\');
    return std::none_of(names.begin(), names.end(),
                        [](const text32& name) { return name == U"." || name == U".."; });
}

/// An install folder that is there already is moved aside and removed in the end. A wizard's user
/// is asked first; here a slip in a script must not cost the machine.
void protect_system_folders(const misc::path& folder)
{
    const std::u16string own = misc::path_key(folder);
    const misc::path windows = misc::get_windows_folder();
    const std::vector<misc::path> needed = {
        windows,
        misc::get_system_folder(),
        misc::get_program_files_folder(),
        windows.root_path() / "Program Files",
        misc::get_program_data_folder(),
        misc::get_profile_folder(),
        misc::get_roaming_folder(),
        misc::get_desktop_folder(),
    };
    for (const misc::path& each : needed) {
        if (!each.empty() && misc::is_or_lies_in(misc::path_key(each), own)) {
            throw folder_refused(": " + misc::to_utf8(each) + " is needed by all");
        }
    }
    if (misc::lies_in(own, misc::path_key(windows)) && misc::is_directory(folder)) {
        throw folder_refused(": it is there already, as a part of Windows");
    }
}

void check(const text32& text)
{
    if (!installation::is_valid_install_path(misc::to_path(std::u32string_view(text)))) {
        throw folder_refused("");
    }
    if (!installation::is_taken_as_written(text)) {
        throw folder_refused(": its \"$\" or \"}\" would be taken for a variable's");
    }
}

} // namespace

text32 settle_install_folder(const text32& text)
{
    check(text);
    text32 folder = installation::normalise_install_path(text);
    // A folder of the network has lost one of its first two separators by now.
    if (!misc::to_path(std::u32string_view(folder)).is_absolute()) {
        throw folder_refused(": it is no full path on a drive");
    }
    if (!has_plain_names_only(folder)) {
        throw folder_refused(": it has \".\" or \"..\" in it");
    }
    protect_system_folders(misc::to_path(std::u32string_view(folder)));
    return folder;
}

text32 settle_typed_install_folder(const text32& text)
{
    check(text);
    const misc::path typed = misc::to_path(std::u32string_view(text));
    return settle_install_folder(misc::to_text32(misc::absolute(typed)));
}

} // namespace nrd::tools
