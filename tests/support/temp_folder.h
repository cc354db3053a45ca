#pragma once

#include "misc/path.h"

#include <string>
#include <string_view>

namespace nrd::test {

/// A fresh, empty folder on the machine; it goes, with all that is in it, when the object does.
class temp_folder {
public:
    temp_folder();
    ~temp_folder();
    temp_folder(const temp_folder&) = delete;
    temp_folder& operator=(const temp_folder&) = delete;

    /// Absolute, no separator at the end.
    [[nodiscard]] const misc::path& path() const { return path_; }
    /// `below` is UTF-8.
    [[nodiscard]] misc::path operator/(std::string_view below) const;
    /// A text with "T:" wherever the folder is named.
    [[nodiscard]] std::string plain(const std::string& text) const;

private:
    misc::path path_;
};

} // namespace nrd::test
