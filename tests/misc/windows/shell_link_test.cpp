#include "misc/shell.h"

#include "support/temp_folder.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <objbase.h>
#include <shlobj.h>

namespace nrd::misc {

namespace {

struct link_content {
    path target;
    std::wstring description;
    path working_directory;
};

link_content read_link(const path& file)
{
    link_content content;
    CoInitialize(nullptr);
    IShellLinkW* link = nullptr;
    IPersistFile* storage = nullptr;
    EXPECT_EQ(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW,
                               reinterpret_cast<void**>(&link)),
              S_OK);
    EXPECT_EQ(link->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(&storage)), S_OK);
    EXPECT_EQ(storage->Load(file.c_str(), STGM_READ), S_OK);
    wchar_t text[MAX_PATH] = {};
    // The path beside it is kept in the ANSI code page.
    LPITEMIDLIST target = nullptr;
    link->GetIDList(&target);
    SHGetPathFromIDListW(target, text);
    CoTaskMemFree(target);
    content.target = text;
    link->GetDescription(text, MAX_PATH);
    content.description = text;
    link->GetWorkingDirectory(text, MAX_PATH);
    content.working_directory = text;
    storage->Release();
    link->Release();
    CoUninitialize();
    return content;
}

TEST(shell_link, leads_to_its_destination_and_says_nothing_more)
{
    const test::temp_folder folder;
    const text32 destination = U"C:\\Pr\u00F6be \u0416\\app.exe";
    const text32 link = create_shortcut(to_text32(folder / "\u4E2D link"), destination);
    const link_content content = read_link(to_path(std::u32string_view(link)));
    EXPECT_EQ(to_text32(content.target), destination);
    EXPECT_EQ(content.description, L"");
    EXPECT_EQ(to_utf8(content.working_directory), "");
}

} // namespace

} // namespace nrd::misc
