#pragma once

#include <filesystem>
#include <string>

// Files of the host that the preview runs on. Their names are UTF-8 throughout.

namespace nrd::tools::preview {

[[nodiscard]] std::filesystem::path host_path(const std::string& name);
[[nodiscard]] std::string absolute_name(const std::string& name);
/// The folder "resources" that the file lies in, however deep, or the file's own folder.
[[nodiscard]] std::string resources_of(const std::string& file);

// Both throw a failure that names the file.
[[nodiscard]] std::string read_file(const std::string& name);
void write_file(const std::string& name, const std::string& content);

} // namespace nrd::tools::preview
