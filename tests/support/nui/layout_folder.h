#pragma once

#include "nui/reader/layout_fault.h"
#include "support/temp_folder.h"

#include <string>
#include <string_view>

namespace nui::test {

/// Layout files that name each other: while it lives, the engine's base path is its folder.
class LayoutFolder {
public:
    LayoutFolder();

    /// Names and strings of `json` may be written with single quotation marks.
    void write(const std::string& name, std::string json) const;
    /// UTF-8, with a separator at the end.
    [[nodiscard]] const std::string& path() const { return path_; }
    /// The sentences on what is wrong with a file, one a line, paths counting from the folder.
    [[nodiscard]] std::string faultsOf(const std::string& name) const;

private:
    nrd::test::temp_folder folder_;
    std::string path_;
};

} // namespace nui::test
