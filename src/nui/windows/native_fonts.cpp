#include "nui/text/native_fonts.h"

#include "misc/known_folders.h"
#include "misc/registry.h"
#include "misc/text.h"

#include <windows.h>

#include <uxtheme.h>

#include <type_traits>

namespace nui {

namespace {

std::wstring wide(const std::string& utf8)
{
    const std::u16string units = nrd::misc::to_utf16(utf8);
    return {units.begin(), units.end()};
}

std::string narrow(const wchar_t* text)
{
    const std::wstring units = text;
    return nrd::misc::to_utf8(std::u16string(units.begin(), units.end()));
}

struct CloseTheme {
    void operator()(HTHEME theme) const { CloseThemeData(theme); }
};

} // namespace

std::string nativeFontsFolder()
{
    return nrd::misc::to_utf8(nrd::misc::to_text32(nrd::misc::get_fonts_folder())) + "\\";
}

std::vector<SystemFont> nativeFonts()
{
    const nrd::misc::text32 key =
        U"HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows NT\\CurrentVersion\\Fonts";
    std::vector<SystemFont> fonts;
    try {
        for (const auto& [name, file] : nrd::misc::read_values(key, nrd::misc::value_names(key))) {
            for (SystemFont& font :
                 fontsOfRegistryValue(nrd::misc::to_utf8(name), nrd::misc::to_utf8(file)))
                fonts.push_back(std::move(font));
        }
    } catch (const nrd::misc::registry_error&) {
        // Without the list, the fonts that come with the layouts will do.
    }
    return fonts;
}

bool nativeFontFileExists(const std::string& path)
{
    return GetFileAttributesW(wide(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

NativeFont nativeMessageFont()
{
    constexpr int MessageBoxFont = 805; // TMT_MSGBOXFONT
    // The record answers also where there are no themes.
    const std::unique_ptr<std::remove_pointer_t<HTHEME>, CloseTheme> theme(
        OpenThemeData(GetDesktopWindow(), L"WINDOW"));
    LOGFONTW record = {};
    if (FAILED(GetThemeSysFont(theme.get(), MessageBoxFont, &record)))
        return {};
    return {.face = narrow(record.lfFaceName),
            .weight = record.lfWeight,
            .italic = record.lfItalic != FALSE};
}

} // namespace nui
