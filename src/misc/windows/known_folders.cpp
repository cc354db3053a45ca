#include "misc/known_folders.h"

#include <initguid.h>
#include <windows.h>

#include <knownfolders.h>
#include <shlobj.h>

namespace nrd::misc {

namespace {

const KNOWNFOLDERID& id_of(known_folder folder)
{
    switch (folder) {
    case known_folder::roaming:
        return FOLDERID_RoamingAppData;
    case known_folder::local:
        return FOLDERID_LocalAppData;
    case known_folder::desktop:
        return FOLDERID_Desktop;
    case known_folder::program_data:
        return FOLDERID_ProgramData;
    case known_folder::program_files:
        return FOLDERID_ProgramFiles;
    case known_folder::documents:
        return FOLDERID_Documents;
    case known_folder::fonts:
        return FOLDERID_Fonts;
    case known_folder::common_programs:
        return FOLDERID_CommonPrograms;
    case known_folder::system:
        return FOLDERID_System;
    case known_folder::profile:
        return FOLDERID_Profile;
    case known_folder::windows:
        break;
    }
    return FOLDERID_Windows;
}

} // namespace

path query_known_folder(known_folder folder)
{
    // The text is not given back: the folders are few, and each is asked for a few times at most.
    wchar_t* text = nullptr;
    if (SHGetKnownFolderPath(id_of(folder), 0, nullptr, &text) != S_OK || text == nullptr) {
        return {};
    }
    return path(text);
}

path get_executable_path()
{
    wchar_t text[MAX_PATH] = {};
    const DWORD length = GetModuleFileNameW(nullptr, text, MAX_PATH);
    return path(std::wstring(text, length));
}

} // namespace nrd::misc
