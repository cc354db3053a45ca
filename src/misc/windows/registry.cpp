#include "misc/registry_platform.h"

#include <algorithm>
#include <vector>
#include <windows.h>

namespace nrd::misc::registry_platform {

namespace {

HKEY root_handle(std::uint32_t root)
{
    // The system sign-extends the handles of its roots.
    return reinterpret_cast<HKEY>(static_cast<LONG_PTR>(static_cast<LONG>(root)));
}

HKEY handle_of(const key& k)
{
    return reinterpret_cast<HKEY>(k.get());
}

const wchar_t* wide(const std::u16string& text)
{
    return reinterpret_cast<const wchar_t*>(text.c_str());
}

status take(LSTATUS result, HKEY handle, key& out)
{
    if (result == ERROR_SUCCESS) {
        out.reset(reinterpret_cast<key_handle*>(handle));
    }
    return static_cast<status>(result);
}

/// The text in `bytes` bytes, up to the first zero: more than one writer forgets the length.
std::u16string text_of(const wchar_t* begin, DWORD bytes)
{
    const wchar_t* const end = begin + bytes / sizeof(wchar_t);
    return {begin, std::find(begin, end, L'\0')};
}

} // namespace

void close_key::operator()(key_handle* handle) const
{
    RegCloseKey(reinterpret_cast<HKEY>(handle));
}

status open_key(std::uint32_t root, const std::u16string& subkey, std::uint32_t access, key& out)
{
    HKEY handle = nullptr;
    const LSTATUS result = RegOpenKeyExW(root_handle(root), wide(subkey), 0, access, &handle);
    return take(result, handle, out);
}

status create_key(std::uint32_t root, const std::u16string& subkey, std::uint32_t access, key& out)
{
    HKEY handle = nullptr;
    const LSTATUS result =
        RegCreateKeyExW(root_handle(root), wide(subkey), 0, nullptr, REG_OPTION_NON_VOLATILE,
                        access, nullptr, &handle, nullptr);
    return take(result, handle, out);
}

status query_info(const key& k, key_info& out)
{
    DWORD subkeys = 0;
    DWORD longest_subkey = 0;
    DWORD values = 0;
    DWORD longest_value = 0;
    const LSTATUS result =
        RegQueryInfoKeyA(handle_of(k), nullptr, nullptr, nullptr, &subkeys, &longest_subkey,
                         nullptr, &values, &longest_value, nullptr, nullptr, nullptr);
    out = {subkeys, longest_subkey, values, longest_value};
    return static_cast<status>(result);
}

status enum_subkey(const key& k, std::uint32_t index, std::uint32_t capacity, std::u16string& out)
{
    std::vector<wchar_t> buffer(capacity);
    DWORD length = capacity;
    const LSTATUS result = RegEnumKeyExW(handle_of(k), index, buffer.data(), &length, nullptr,
                                         nullptr, nullptr, nullptr);
    if (result == ERROR_SUCCESS) {
        out.assign(buffer.data(), buffer.data() + length);
    }
    return static_cast<status>(result);
}

status enum_value(const key& k, std::uint32_t index, std::uint32_t capacity, std::u16string& out)
{
    std::vector<wchar_t> buffer(capacity);
    DWORD length = capacity;
    const LSTATUS result = RegEnumValueW(handle_of(k), index, buffer.data(), &length, nullptr,
                                         nullptr, nullptr, nullptr);
    if (result == ERROR_SUCCESS) {
        out.assign(buffer.data(), buffer.data() + length);
    }
    return static_cast<status>(result);
}

status get_string(const key& k, const std::u16string& name, std::uint32_t capacity,
                  std::u16string& out)
{
    std::vector<wchar_t> buffer(capacity);
    DWORD bytes = static_cast<DWORD>(buffer.size() * sizeof(wchar_t));
    const LSTATUS result = RegGetValueW(handle_of(k), nullptr, wide(name),
                                        RRF_RT_REG_SZ | RRF_RT_REG_EXPAND_SZ | RRF_NOEXPAND,
                                        nullptr, buffer.data(), &bytes);
    if (result == ERROR_SUCCESS) {
        out = text_of(buffer.data(), bytes);
    }
    return static_cast<status>(result);
}

status get_strings(const key& k, const std::vector<std::u16string>& names,
                   std::vector<std::u16string>& out)
{
    std::vector<std::u16string> owned = names;
    std::vector<VALENTW> entries(owned.size());
    for (std::size_t i = 0; i < owned.size(); ++i) {
        entries[i].ve_valuename = reinterpret_cast<LPWSTR>(owned[i].data());
    }
    std::vector<wchar_t> buffer(1024);
    DWORD bytes = 0;
    LSTATUS result = ERROR_MORE_DATA;
    for (int attempt = 0; attempt < 2 && result == ERROR_MORE_DATA; ++attempt) {
        buffer.resize(buffer.size() + bytes / sizeof(wchar_t));
        bytes = static_cast<DWORD>(buffer.size() * sizeof(wchar_t));
        result = RegQueryMultipleValuesW(handle_of(k), entries.data(),
                                         static_cast<DWORD>(entries.size()), buffer.data(), &bytes);
    }
    if (result != ERROR_SUCCESS) {
        return static_cast<status>(result);
    }
    out.clear();
    for (const VALENTW& entry : entries) {
        if (entry.ve_type != REG_SZ && entry.ve_type != REG_EXPAND_SZ) {
            return unsupported_type;
        }
        out.push_back(
            text_of(reinterpret_cast<const wchar_t*>(entry.ve_valueptr), entry.ve_valuelen));
    }
    return success;
}

status get_data(const key& k, const std::u16string& name, std::uint32_t& type,
                std::vector<std::uint8_t>& out)
{
    DWORD kind = 0;
    DWORD bytes = 0;
    LSTATUS result = ERROR_MORE_DATA;
    for (int attempt = 0; attempt < 3 && result == ERROR_MORE_DATA; ++attempt) {
        out.resize(bytes);
        // Without room it would tell the size as a success.
        BYTE none = 0;
        result = RegQueryValueExW(handle_of(k), wide(name), nullptr, &kind,
                                  out.empty() ? &none : out.data(), &bytes);
    }
    out.resize(bytes);
    type = kind;
    return static_cast<status>(result);
}

status query_value(const key& k, const std::u16string& name)
{
    return static_cast<status>(
        RegGetValueW(handle_of(k), nullptr, wide(name), RRF_RT_ANY, nullptr, nullptr, nullptr));
}

status set_string(const key& k, const std::u16string& name, const std::u16string& text)
{
    const DWORD bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    return static_cast<status>(RegSetValueExW(handle_of(k), wide(name), 0, REG_SZ,
                                              reinterpret_cast<const BYTE*>(text.c_str()), bytes));
}

status delete_tree(const key& parent, const std::u16string& name)
{
    return static_cast<status>(RegDeleteTreeW(handle_of(parent), wide(name)));
}

status delete_value(const key& k, const std::u16string& name)
{
    return static_cast<status>(RegDeleteValueW(handle_of(k), wide(name)));
}

} // namespace nrd::misc::registry_platform
