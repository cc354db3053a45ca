#pragma once

#include "inst/installation/spec.h"
#include "misc/path.h"

#include <map>
#include <string>
#include <string_view>

namespace nrd::test {

/// Puts a package together: payload in a folder, and the install.xml beside it.
class package_builder {
public:
    explicit package_builder(misc::path folder) : folder_(std::move(folder)) {}

    [[nodiscard]] const misc::path& folder() const { return folder_; }

    /// `name` is relative to the folder; UTF-8.
    package_builder& file(std::string_view name, std::string_view content);
    package_builder& empty_folder(std::string_view name);

    /// Adds XML text to a section: "vars", "packages", "registry", "path_entries", "shortcuts" or
    /// "block_processes".
    package_builder& add(const std::string& section, std::string_view xml);
    package_builder& var(std::string_view name, std::string_view value);

    /// Writes install.xml and gives its path.
    misc::path write();
    /// Writes it and reads it again.
    installation::spec import();

private:
    misc::path folder_;
    std::map<std::string, std::string> sections_;
};

} // namespace nrd::test
