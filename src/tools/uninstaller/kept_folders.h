#pragma once

#include "inst/installation/spec.h"
#include "misc/path.h"

#include <string>
#include <vector>

namespace nrd::uninstaller {

/// The folders that are not the uninstaller's to remove, not even when they are empty: those of the
/// system, those that a variable of the spec names, such as a host's, and the install folder. A
/// variable whose value is composed of others names a place of the product's own making, and does
/// not count.
class kept_folders {
public:
    /// Throws std::invalid_argument without the variable "APP_INSTALL_PATH".
    explicit kept_folders(const installation::spec& s);

    /// True for a kept folder, for any that one lies in, and for the top of a drive.
    [[nodiscard]] bool holds(const misc::path& folder) const;

    /// True if the install folder is the system's or holds a folder of the system's, or if a kept
    /// folder lies in it among files, at the moment of the question.
    [[nodiscard]] bool others_in_install_folder() const;

private:
    // Paths are held in the form in which all spellings of one are equal.
    std::u16string install_folder_;
    std::vector<std::u16string> of_system_;
    std::vector<misc::path> named_;
};

/// Whether `p` is `folder` or lies somewhere in it.
bool is_or_lies_in(const misc::path& p, const misc::path& folder);

} // namespace nrd::uninstaller
