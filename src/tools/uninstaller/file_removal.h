#pragma once

#include "inst/installation/spec.h"
#include "misc/path.h"
#include "tools/uninstaller/kept_folders.h"

#include <string>
#include <vector>

namespace nrd::uninstaller {

/// What is still there after it was to be removed, a clause for each thing, as UTF-8.
using leftovers = std::vector<std::string>;

/// The place on disk of what a fileset of an uninstall.xml installed; empty if nothing of it is
/// there, since it was never installed or went before, and if it cannot be told from what others
/// have put there.
///
/// `out` names it, but for one file whose destination was a full new name: then `out` is that name
/// with the name of the source behind it, as if the file were a folder. A folder stands for all
/// that is in it, if it is known that the install made it.
misc::path installed_at(const installation::spec& s, const installation::fileset& listed);

/// Removes files, links and folders, and then the folders that this has emptied.
class file_removal {
public:
    /// Both outlive the object.
    file_removal(const kept_folders& kept, leftovers& left) : kept_(kept), left_(left) {}

    /// A folder goes with all that is in it, unless it is one of those that are kept.
    void remove(const misc::path& p);
    void remove_emptied_folders();

private:
    const kept_folders& kept_;
    leftovers& left_;
    std::vector<misc::path> left_behind_; ///< folders that something was removed from
};

} // namespace nrd::uninstaller
