#include "misc/processes.h"

#include <memory>
#include <windows.h>

#include <tlhelp32.h>

// The names are wanted as 8-bit text, whatever the build's default is.
#undef PROCESSENTRY32
#undef Process32First
#undef Process32Next

namespace nrd::misc {

namespace {

struct close_handle {
    void operator()(void* handle) const { CloseHandle(handle); }
};

} // namespace

std::vector<process_entry> list_processes()
{
    std::vector<process_entry> found;
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    if (snapshot == INVALID_HANDLE_VALUE) {
        return found;
    }
    const std::unique_ptr<void, close_handle> owner(snapshot);
    PROCESSENTRY32 entry = {};
    entry.dwSize = sizeof(entry);
    for (BOOL more = Process32First(snapshot, &entry); more != FALSE;
         more = Process32Next(snapshot, &entry)) {
        found.push_back({entry.szExeFile, entry.th32ProcessID});
    }
    return found;
}

std::uint32_t current_process_id()
{
    return GetCurrentProcessId();
}

std::optional<std::uint32_t> query_binary_type(const path& p)
{
    DWORD type = 0;
    if (GetBinaryTypeW(p.c_str(), &type) == FALSE) {
        return std::nullopt;
    }
    return type;
}

} // namespace nrd::misc
