#pragma once

#include "misc/path.h"

#include <optional>
#include <vector>

// A package has the form <root>/0/<any folder>/install.xml, <root>/1/<any folder>/install.xml and
// so on without gaps, and its program stands three folders below the root.

namespace nrd::vs_installer {

/// The install.xml in the first folder of `search_root` / `folder`, in the order of the directory,
/// that holds one; not one that lies in the numbered folder itself. Throws filesystem_error if the
/// numbered folder is there but cannot be read as a folder.
std::optional<misc::path> find_install_xml(const misc::path& search_root, const misc::path& folder);

/// The install.xml files of the numbered folders from "0" up to the first gap, 999 at most.
std::vector<misc::path> find_install_xmls(const misc::path& package_root);

} // namespace nrd::vs_installer
