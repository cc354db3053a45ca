#include "misc/host_file_system.h"

#include <boost/filesystem/operations.hpp>
#include <memory>
#include <windows.h>

namespace nrd::misc {

namespace {

struct free_local {
    void operator()(wchar_t* text) const { LocalFree(text); }
};

struct close_handle {
    void operator()(void* handle) const { CloseHandle(handle); }
};

/// The error of opening what is there with these rights; everything is shared, so the opening
/// itself stands in nobody's way.
error_code open_refusal(const path& p, DWORD access, DWORD flags = 0)
{
    const HANDLE handle =
        CreateFileW(p.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | flags, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        return {static_cast<int>(GetLastError()), boost::system::system_category()};
    }
    const std::unique_ptr<void, close_handle> owner(handle);
    return {};
}

} // namespace

boost::filesystem::path to_host(const path& p)
{
    return p;
}

path from_host(const boost::filesystem::path& host)
{
    return host;
}

path from_host_name(const boost::filesystem::path& name)
{
    return name;
}

boost::filesystem::path as_error_path(const path& p)
{
    return p;
}

std::string error_path_text(const boost::filesystem::path& p)
{
    return to_utf8(p);
}

error_code change_refusal(const path&)
{
    return {};
}

error_code overwrite_refusal(const path&, const boost::filesystem::path&)
{
    return {};
}

error_code name_refusal(const path& p)
{
    constexpr std::size_t longest = 255; // units; to ask for a longer one may answer "not found"
    DWORD reason = ERROR_SUCCESS;
    if (p.filename().native().size() > longest) {
        reason = ERROR_FILENAME_EXCED_RANGE;
    } else if (GetFileAttributesW(p.c_str()) == INVALID_FILE_ATTRIBUTES &&
               GetLastError() == ERROR_INVALID_NAME) {
        reason = ERROR_INVALID_NAME;
    }
    return {static_cast<int>(reason), boost::system::system_category()};
}

error_code write_refusal(const path& p)
{
    // The rights have the same numbers for a folder, where they are those to add files and folders.
    return open_refusal(p, FILE_WRITE_DATA | FILE_APPEND_DATA);
}

error_code move_refusal(const path& p)
{
    // A folder stays where it is while anything in it is open.
    error_code ec = open_refusal(p, DELETE, FILE_FLAG_OPEN_REPARSE_POINT);
    error_code walk_error;
    for (boost::filesystem::recursive_directory_iterator entry(p, walk_error), end;
         !ec && !walk_error && entry != end; entry.increment(walk_error)) {
        ec = open_refusal(entry->path(), DELETE, FILE_FLAG_OPEN_REPARSE_POINT);
    }
    return ec;
}

void make_removable(const path& p)
{
    const DWORD attributes = GetFileAttributesW(p.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
        SetFileAttributesW(p.c_str(), attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY));
    }
}

std::string error_message(const error_code& ec)
{
    if (ec.category() != boost::system::system_category()) {
        return ec.message();
    }
    // The library would give the text in the ANSI code page.
    wchar_t* raw = nullptr;
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, static_cast<DWORD>(ec.value()), 0, reinterpret_cast<LPWSTR>(&raw), 0, nullptr);
    const std::unique_ptr<wchar_t, free_local> owner(raw);
    if (length == 0) {
        return ec.message();
    }
    std::u16string text(raw, raw + length);
    text.erase(text.find_last_not_of(u"\r\n. ") + 1);
    return to_utf8(text);
}

} // namespace nrd::misc
