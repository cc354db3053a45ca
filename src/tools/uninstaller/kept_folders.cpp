#include "tools/uninstaller/kept_folders.h"

#include "misc/file_system.h"
#include "misc/known_folders.h"

#include <algorithm>

namespace nrd::uninstaller {

using misc::path_key;
using misc::to_path;

namespace {

constexpr misc::known_folder folders_of_system[] = {
    misc::known_folder::roaming,       misc::known_folder::local,
    misc::known_folder::desktop,       misc::known_folder::program_data,
    misc::known_folder::program_files, misc::known_folder::documents,
    misc::known_folder::fonts,         misc::known_folder::common_programs,
    misc::known_folder::system,        misc::known_folder::profile,
    misc::known_folder::windows,
};

/// The folder right below `top` that leads to `p`.
misc::path topmost_below(const std::u16string& top, misc::path p)
{
    while (misc::lies_in(path_key(p.parent_path()), top)) {
        p = p.parent_path();
    }
    return p;
}

bool holds_files(const misc::path& folder)
{
    try {
        return misc::count_files_below(folder) > 0;
    } catch (const misc::filesystem_error&) {
        return true; // what cannot be looked at is not ours
    }
}

bool is_composed(const installation::var& each)
{
    return each.value.find(U"${") != each.value.npos;
}

} // namespace

kept_folders::kept_folders(const installation::spec& s)
    : install_folder_(path_key(to_path(std::u32string_view(s.var_value(U"APP_INSTALL_PATH")))))
{
    for (const misc::known_folder each : folders_of_system) {
        if (const misc::path folder = misc::query_known_folder(each); !folder.empty()) {
            of_system_.push_back(path_key(folder));
        }
    }
    for (const installation::var& each : s.vars) {
        const misc::path folder = to_path(std::u32string_view(s.expand(each.value)));
        if (!folder.is_absolute() || is_composed(each)) {
            continue;
        }
        if (each.name == U"DEFAULT_PROGRAM_DIRECTORY") {
            of_system_.push_back(path_key(folder));
        } else {
            named_.push_back(folder);
        }
    }
}

bool kept_folders::holds(const misc::path& folder) const
{
    const std::u16string key = path_key(folder);
    const auto is_in_it = [&key](const std::u16string& kept) {
        return misc::is_or_lies_in(kept, key);
    };
    return folder.relative_path().empty() || is_in_it(install_folder_) ||
           std::any_of(of_system_.begin(), of_system_.end(), is_in_it) ||
           std::any_of(named_.begin(), named_.end(),
                       [&](const misc::path& named) { return is_in_it(path_key(named)); });
}

bool kept_folders::others_in_install_folder() const
{
    return std::any_of(of_system_.begin(), of_system_.end(),
                       [this](const std::u16string& kept) {
                           return misc::is_or_lies_in(kept, install_folder_);
                       }) ||
           std::any_of(named_.begin(), named_.end(), [this](const misc::path& named) {
               return misc::lies_in(path_key(named), install_folder_) &&
                      misc::is_directory(named) &&
                      holds_files(topmost_below(install_folder_, named));
           });
}

bool is_or_lies_in(const misc::path& p, const misc::path& folder)
{
    return misc::is_or_lies_in(path_key(p), path_key(folder));
}

} // namespace nrd::uninstaller
