#pragma once

#include "support/temp_folder.h"

#include <string>

namespace nui::test {

/// A resource directory of its own, for pictures that are written at run time.
class PictureFolder {
public:
    /// As the toolkit takes it: a path of the host, UTF-8.
    [[nodiscard]] std::string path() const;

    /// Writes a PNG file. Each row of `rows` ends with a line break and has one letter a pixel:
    /// 'r', 'g', 'b', 'w', 'k' for red, green, blue, white and black, '.' for transparent, and
    /// 'h' for white of half the opacity. Folders of `name` are made.
    void write(const std::string& name, const std::string& rows) const;

private:
    nrd::test::temp_folder folder_;
};

} // namespace nui::test
