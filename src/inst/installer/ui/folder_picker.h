#pragma once

#include "misc/path.h"

#include <optional>

namespace nrd::installer::ui {

/// Lets the user pick a folder with the system's own picker, modal over the active window, and
/// waits for it. It begins in `start`, or wherever the system likes if that is empty. Nothing if
/// the user cancels, or if the system has no picker, which is logged.
std::optional<misc::path> pick_folder(const misc::path& start);

} // namespace nrd::installer::ui
