#include "misc/system_info.h"

#include <stdexcept>
#include <string>
#include <windows.h>

namespace nrd::misc {

namespace {

template <int Size> std::string locale_text(LANGID language, LCTYPE item)
{
    char text[Size] = {};
    GetLocaleInfoA(MAKELCID(language, SORT_DEFAULT), item, text, Size);
    return text;
}

} // namespace

bitness_facts query_bitness()
{
    using is_wow64_process2 = BOOL(WINAPI*)(HANDLE, USHORT*, USHORT*);

    bitness_facts facts;
    const HMODULE kernel = LoadLibraryW(L"kernel32.dll");
    if (kernel == nullptr) {
        return facts;
    }
    facts.kernel_found = true;
    if (const FARPROC found = GetProcAddress(kernel, "IsWow64Process2")) {
        const auto call = reinterpret_cast<is_wow64_process2>(reinterpret_cast<void*>(found));
        facts.has_is_wow64_process2 = true;
        facts.call_succeeded =
            call(GetCurrentProcess(), &facts.process_machine, &facts.native_machine) != FALSE;
        return facts; // kernel32 stays loaded in any process, so the handle is left as it is
    }
    BOOL wow64 = FALSE;
    facts.is_wow64_process = IsWow64Process(GetCurrentProcess(), &wow64) != FALSE && wow64 != FALSE;
    FreeLibrary(kernel);
    return facts;
}

screen_rectangle get_screen_work_area()
{
    RECT area = {};
    if (SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0) == FALSE) {
        throw std::runtime_error("SystemParametersInfo : " + std::to_string(GetLastError()));
    }
    return {area.left, area.top, area.right, area.bottom};
}

std::string user_locale_name()
{
    return locale_text<LOCALE_NAME_MAX_LENGTH>(GetUserDefaultUILanguage(), LOCALE_SNAME);
}

std::uint16_t user_language_id()
{
    return GetUserDefaultUILanguage();
}

std::string keyboard_language_name()
{
    constexpr int longest_name = 9;
    // The low word of a layout's handle is its language.
    const auto layout = reinterpret_cast<std::uintptr_t>(GetKeyboardLayout(0));
    return locale_text<longest_name>(LOWORD(layout), LOCALE_SABBREVLANGNAME);
}

} // namespace nrd::misc
