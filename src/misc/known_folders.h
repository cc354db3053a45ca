#pragma once

#include "misc/path.h"

// The system's folders, with no separator at the end. A folder that the system cannot name is an
// empty path.

namespace nrd::misc {

/// The per-user roaming application data, or what "--prefs" gave.
path get_settings_folder();
/// The user's desktop, or what "--desktop" gave.
path get_desktop_folder();
/// The roaming application data whatever "--prefs" says.
path get_roaming_folder();
path get_local_folder();
path get_program_data_folder();
/// For a 32-bit process on a 64-bit Windows this is the folder of the 32-bit programs.
path get_program_files_folder();
path get_documents_folder();
path get_fonts_folder();
/// The start menu's programs of all users.
path get_common_programs_folder();
path get_system_folder();
path get_profile_folder();
path get_windows_folder();

/// The running program's file, cut at 260 characters on Windows.
path get_executable_path();

enum class known_folder {
    roaming,
    local,
    desktop,
    program_data,
    program_files,
    documents,
    fonts,
    common_programs,
    system,
    profile,
    windows,
};

/// The platform's answer, without overrides.
path query_known_folder(known_folder folder);

} // namespace nrd::misc
