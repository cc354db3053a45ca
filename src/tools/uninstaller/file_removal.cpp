#include "tools/uninstaller/file_removal.h"

#include "misc/file_system.h"
#include "streams/installer_log.h"

namespace nrd::uninstaller {

using installation::fileset;
using installation::spec;
using misc::text32;
using misc::to_path;
using misc::to_text32;
using misc::to_utf8;

namespace {

misc::file_type type_of(const misc::path& p)
{
    return misc::symlink_status(p).type();
}

/// True also for what cannot be looked at: only what is known to be gone counts as gone.
bool is_there(const misc::path& p)
{
    return type_of(p) != boost::filesystem::file_not_found;
}

bool is_folder(const misc::path& p)
{
    return type_of(p) == boost::filesystem::directory_file;
}

bool is_empty_folder(const misc::path& p)
{
    try {
        return is_folder(p) && misc::directory_entries(p).empty();
    } catch (const misc::filesystem_error&) {
        return false;
    }
}

misc::path expanded_path(const spec& s, text32 text)
{
    text = s.expand(text);
    const auto is_root = [&text] { return text.size() <= 3; };
    while (text.ends_with(U'\\') && !is_root()) {
        text.pop_back();
    }
    return to_path(std::u32string_view(text));
}

/// A folder is listed as a whole if its destination was not there before. Where the source came
/// through a variable or had no name, the path may as well be that of a folder of the host's.
bool made_by_install(const fileset& listed)
{
    return !listed.in().empty() && listed.in().find(U"${") == text32::npos &&
           !listed.out().ends_with(U"\\.") && !listed.out().ends_with(U"\\..");
}

} // namespace

misc::path installed_at(const spec& s, const fileset& listed)
{
    const misc::path out = expanded_path(s, listed.out());
    if (!out.is_absolute()) {
        return {};
    }
    if (is_there(out)) {
        return is_folder(out) && !made_by_install(listed) ? misc::path() : out;
    }
    const misc::path source = to_path(std::u32string_view(listed.in()));
    const misc::path stored = to_path(std::u32string_view(listed.out()));
    if (source.filename() != stored.filename()) {
        return {};
    }
    misc::path destination = expanded_path(s, to_text32(stored.parent_path()));
    if (is_there(destination) && !is_folder(destination)) {
        return destination;
    }
    // A source that is a variable as a whole: its own name shows only now.
    const misc::path by_own_name = destination / expanded_path(s, listed.in()).filename();
    return is_there(by_own_name) && !is_folder(by_own_name) ? by_own_name : misc::path();
}

void file_removal::remove(const misc::path& p)
{
    installer_log("Removing " + to_utf8(p));
    misc::error_code ec;
    if (!is_folder(p)) {
        misc::remove(p, ec);
    } else if (kept_.holds(p)) {
        left_.push_back(to_utf8(p) + " is a folder that others use");
        return;
    } else {
        misc::remove_all(p, ec);
    }
    if (is_there(p)) {
        left_.push_back(to_utf8(p) + " cannot be removed: " + misc::error_message(ec));
    } else {
        left_behind_.push_back(p.parent_path());
    }
}

void file_removal::remove_emptied_folders()
{
    for (misc::path folder : left_behind_) {
        misc::error_code ec;
        while (!ec && is_empty_folder(folder) && !kept_.holds(folder)) {
            installer_log("Removing the empty folder " + to_utf8(folder));
            misc::remove(folder, ec);
            folder = folder.parent_path();
        }
    }
    left_behind_.clear();
}

} // namespace nrd::uninstaller
