#pragma once

#include <string>

namespace nui {

/// The text of the system's clipboard, UTF-8; empty if it has none.
[[nodiscard]] std::string clipboardText();

} // namespace nui
