#include "misc/registry.h"

#include "support/registry_text.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace nrd::misc {

namespace {

/// The key as the system sees it through a view, without misc; null if it is not there.
HKEY open_in_view(const text32& path, REGSAM view)
{
    const std::u16string subkey = to_utf16(path.substr(path.find(U'\\') + 1));
    HKEY key = nullptr;
    RegOpenKeyExW(HKEY_LOCAL_MACHINE, reinterpret_cast<const wchar_t*>(subkey.c_str()), 0,
                  KEY_READ | KEY_WRITE | view, &key);
    return key;
}

TEST(registry_view, is_the_64_bit_one)
{
    const test::scratch_key key;
    create_key(key / U"sub");
    set_string_value(key.path(), U"x", U"1");
    const HKEY seen = open_in_view(key.path(), KEY_WOW64_64KEY);
    EXPECT_NE(seen, nullptr);
    EXPECT_EQ(RegQueryValueExW(seen, L"x", nullptr, nullptr, nullptr, nullptr), ERROR_SUCCESS);
    RegCloseKey(seen);
    EXPECT_EQ(open_in_view(key.path(), KEY_WOW64_32KEY), nullptr);
    EXPECT_TRUE(delete_key(key.path()));
    EXPECT_EQ(open_in_view(key.path(), KEY_WOW64_64KEY), nullptr);
}

TEST(registry_view, only_strings_are_read_and_those_as_they_are_stored)
{
    const test::scratch_key key;
    create_key(key.path());
    const HKEY raw = open_in_view(key.path(), KEY_WOW64_64KEY);
    const auto set = [raw](const wchar_t* name, DWORD type, const void* data, std::size_t bytes) {
        RegSetValueExW(raw, name, 0, type, static_cast<const BYTE*>(data),
                       static_cast<DWORD>(bytes));
    };
    const DWORD number = 0x00410042;
    set(L"number", REG_DWORD, &number, sizeof(number));
    set(L"binary", REG_BINARY, &number, sizeof(number));
    const wchar_t list[] = {L'a', 0, L'b', 0, 0};
    set(L"list", REG_MULTI_SZ, list, sizeof(list));
    set(L"expandable", REG_EXPAND_SZ, L"%PATH%", 14);
    set(L"unterminated", REG_SZ, L"abc", 6);
    set(L"nothing", REG_NONE, nullptr, 0);
    RegCloseKey(raw);
    const auto told = [&key](const char32_t* name) {
        const auto data = read_data(key.path(), name);
        return data ? data->type + " " + to_utf8(data->text) : "(none)";
    };
    EXPECT_EQ(told(U"number"), "REG_DWORD 4259906");
    EXPECT_EQ(told(U"binary"), "REG_BINARY 42004100");
    EXPECT_EQ(told(U"list"), "REG_MULTI_SZ \"a\", \"b\"");
    EXPECT_EQ(told(U"expandable"), "REG_EXPAND_SZ %PATH%");
    EXPECT_EQ(told(U"unterminated"), "REG_SZ abc");
    EXPECT_EQ(told(U"nothing"), "REG_NONE ");
    EXPECT_EQ(told(U"absent"), "(none)");
    for (const char32_t* const name : {U"number", U"binary", U"list"}) {
        EXPECT_TRUE(value_exists(key.path(), name));
        EXPECT_EQ(read_value(key.path(), name), U"");
    }
    EXPECT_EQ(read_value(key.path(), U"expandable"), U"%PATH%");
    EXPECT_EQ(read_value(key.path(), U"unterminated"), U"abc");
    EXPECT_EQ(read_values(key.path(), {U"number", U"expandable"}),
              (std::map<text32, text32>{{U"number", U""}, {U"expandable", U"%PATH%"}}));
}

} // namespace

} // namespace nrd::misc
