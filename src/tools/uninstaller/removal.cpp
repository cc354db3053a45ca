#include "tools/uninstaller/removal.h"

#include "misc/file_system.h"
#include "tools/uninstaller/kept_folders.h"
#include "tools/uninstaller/record_removal.h"

namespace nrd::uninstaller {

using installation::fileset;
using installation::package;
using installation::reg_key;
using installation::spec;

namespace {

/// What is needed to uninstall goes last.
enum class stage { product, uninstaller };

misc::path uninstaller_folder(const spec& s)
{
    return misc::to_path(std::u32string_view(s.expand(U"${APP_INSTALL_PATH}\\uninstaller.dir")));
}

std::vector<misc::path> listed_paths(const spec& s, stage wanted)
{
    const misc::path own_folder = uninstaller_folder(s);
    std::vector<misc::path> paths;
    for (const package& pack : s.packages) {
        for (const fileset& each : pack.filesets) {
            const misc::path p = installed_at(s, each);
            if (!p.empty() && is_or_lies_in(p, own_folder) == (wanted == stage::uninstaller)) {
                paths.push_back(p);
            }
        }
    }
    return paths;
}

void remove_product_files(const spec& s, file_removal& files)
{
    for (const misc::path& each : listed_paths(s, stage::product)) {
        files.remove(each);
    }
    files.remove_emptied_folders();
}

/// The batch file stays: it is running, and would not get to its next line.
void remove_uninstaller_files(const spec& s, file_removal& files)
{
    const misc::path own_folder = uninstaller_folder(s);
    const misc::path batch_file = own_folder / "uninstall.bat";
    for (const misc::path& each : listed_paths(s, stage::uninstaller)) {
        const bool whole_folder = is_or_lies_in(own_folder, each);
        for (const misc::path& p :
             whole_folder ? misc::directory_entries(each) : std::vector<misc::path>{each}) {
            if (!is_or_lies_in(p, batch_file)) {
                files.remove(p);
            }
        }
    }
    files.remove_emptied_folders();
}

void remove_values(const spec& s, stage wanted, leftovers& left)
{
    for (const reg_key& each : s.reg_keys) {
        if (is_uninstall_entry(s, each) == (wanted == stage::uninstaller)) {
            remove_value(s, each, left);
        }
    }
}

} // namespace

removal_result remove_installation(const spec& s)
{
    removal_result result;
    const kept_folders kept(s);
    file_removal files(kept, result.left);
    remove_product_files(s, files);
    remove_values(s, stage::product, result.left);
    remove_path_entries(s, result.left);
    if (result.left.empty()) {
        remove_uninstaller_files(s, files);
    }
    if (result.left.empty()) {
        remove_values(s, stage::uninstaller, result.left);
    }
    result.install_folder_is_shared = kept.others_in_install_folder();
    return result;
}

} // namespace nrd::uninstaller
