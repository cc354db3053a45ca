#include "misc/system_info.h"

#include <stdexcept>
#include <string>
#include <windows.h>

namespace nrd::misc {

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

} // namespace nrd::misc
