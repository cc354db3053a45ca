#pragma once

#include <string>
#include <string_view>

namespace nui {

/// Whether the name stands for itself: it begins with a separator or names a drive or scheme.
[[nodiscard]] bool isAbsoluteName(std::string_view name);

/// `name` below `base`, with separators that every system takes. An absolute or empty name stands
/// alone, as does any below an empty base. Paths of the toolkit are UTF-8 and take both separators.
[[nodiscard]] std::string joinPath(std::string_view base, std::string_view name);

} // namespace nui
