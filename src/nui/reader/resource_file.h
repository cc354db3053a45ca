#pragma once

#include <string>

namespace nui {

/// The bytes of a file; none if it cannot be read. `path` is UTF-8.
[[nodiscard]] std::string contentOf(const std::string& path);

} // namespace nui
