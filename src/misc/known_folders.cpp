#include "misc/known_folders.h"

#include "misc/command_line.h"

namespace nrd::misc {

path get_settings_folder()
{
    return prefs_override().value_or(get_roaming_folder());
}

path get_desktop_folder()
{
    return desktop_override().value_or(query_known_folder(known_folder::desktop));
}

path get_roaming_folder()
{
    return query_known_folder(known_folder::roaming);
}

path get_local_folder()
{
    return query_known_folder(known_folder::local);
}

path get_program_data_folder()
{
    return query_known_folder(known_folder::program_data);
}

path get_program_files_folder()
{
    return query_known_folder(known_folder::program_files);
}

path get_documents_folder()
{
    return query_known_folder(known_folder::documents);
}

path get_fonts_folder()
{
    return query_known_folder(known_folder::fonts);
}

path get_common_programs_folder()
{
    return query_known_folder(known_folder::common_programs);
}

path get_system_folder()
{
    return query_known_folder(known_folder::system);
}

path get_profile_folder()
{
    return query_known_folder(known_folder::profile);
}

path get_windows_folder()
{
    return query_known_folder(known_folder::windows);
}

} // namespace nrd::misc
