#include "tools/setup_unattended/install_folder.h"

#include "inst/installation/install_path.h"
#include "inst/installation/variables.h"
#include "misc/file_system.h"

#include <algorithm>

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
    return folder;
}

text32 settle_typed_install_folder(const text32& text)
{
    check(text);
    const misc::path typed = misc::to_path(std::u32string_view(text));
    return settle_install_folder(misc::to_text32(misc::absolute(typed)));
}

} // namespace nrd::tools
