#include "inst/installation/install_path.h"

#include "misc/known_folders.h"

namespace nrd::installation {

bool is_valid_install_path(const misc::path& path)
{
    return path != path.root_path() && path != misc::get_windows_folder() &&
           path != misc::get_program_files_folder() && path != misc::get_system_folder();
}

misc::text32 normalise_install_path(std::u32string_view text)
{
    return misc::collapse_repeated(misc::replace_separators(text), U'\\');
}

} // namespace nrd::installation
