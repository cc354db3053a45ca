#include "nui/text/native_fonts.h"

#include "misc/system_info.h"

#include <fontconfig/fontconfig.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>

// The fonts here are fontconfig's.

namespace nui {

namespace {

struct Destroy {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
    void operator()(FcObjectSet* set) const { FcObjectSetDestroy(set); }
    void operator()(FcFontSet* set) const { FcFontSetDestroy(set); }
};

template <class T> using Owned = std::unique_ptr<T, Destroy>;

constexpr const char* PreferredFamily = "Noto Sans";
constexpr const char* AnyFamily = "sans-serif";

std::string textOf(FcPattern* font, const char* property)
{
    FcChar8* value = nullptr;
    if (FcPatternGetString(font, property, 0, &value) != FcResultMatch)
        return {};
    return reinterpret_cast<const char*>(value);
}

/// Nothing for a variation of a face: only the face itself is in the file.
std::optional<std::int32_t> indexOf(FcPattern* font)
{
    constexpr int LargestFaceIndex = 0xFFFF;
    int index = 0;
    FcPatternGetInteger(font, FC_INDEX, 0, &index);
    if (index < 0 || index > LargestFaceIndex)
        return std::nullopt;
    return index;
}

bool writes(FcPattern* font, const std::string& language)
{
    FcLangSet* languages = nullptr;
    return FcPatternGetLangSet(font, FC_LANG, 0, &languages) == FcResultMatch &&
           FcLangSetHasLang(languages, reinterpret_cast<const FcChar8*>(language.c_str())) !=
               FcLangDifferentLang;
}

Owned<FcPattern> patternFor(const std::string& language)
{
    Owned<FcPattern> pattern(FcPatternCreate());
    for (const char* const family : {PreferredFamily, AnyFamily})
        FcPatternAddString(pattern.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(family));
    FcPatternAddString(pattern.get(), FC_LANG, reinterpret_cast<const FcChar8*>(language.c_str()));
    FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    return pattern;
}

/// Calls `use` with the best font for the language.
template <class Use> void withFontFor(const std::string& language, Use use)
{
    FcResult result = FcResultNoMatch;
    const Owned<FcFontSet> sorted(
        FcFontSort(nullptr, patternFor(language).get(), FcFalse, nullptr, &result));
    for (int i = 0; sorted && i < sorted->nfont; ++i) {
        if (writes(sorted->fonts[i], language)) {
            use(sorted->fonts[i]);
            return;
        }
    }
}

/// The faces that are looked for by Windows' names, and the languages that they are made for.
struct StandIn {
    const char* face;
    const char* language;
};
constexpr StandIn StandIns[] = {
    {"Yu Gothic UI", "ja"},
    {"Malgun Gothic UI", "ko"},
    {"Microsoft YaHei UI", "zh-cn"},
    {"Microsoft JhengHei UI", "zh-tw"},
};

/// A plain face goes by its family alone, as on Windows.
std::string displayName(FcPattern* font)
{
    constexpr std::string_view Plain = " Regular";
    std::string name = textOf(font, FC_FULLNAME);
    if (name.ends_with(Plain))
        name.erase(name.size() - Plain.size());
    return name;
}

void addFont(std::vector<SystemFont>& fonts, FcPattern* font, const std::string& family)
{
    const std::optional<std::int32_t> index = indexOf(font);
    if (family.empty() || !index)
        return;
    std::vector<SystemFont> found = fontsOfRegistryValue(family, textOf(font, FC_FILE));
    if (found.size() != 1)
        return;
    found.front().index = *index;
    fonts.push_back(std::move(found.front()));
}

} // namespace

std::string nativeFontsFolder()
{
    return "/usr/share/fonts/";
}

std::vector<SystemFont> nativeFonts()
{
    const Owned<FcPattern> any(FcPatternCreate());
    const Owned<FcObjectSet> properties(
        FcObjectSetBuild(FC_FULLNAME, FC_FILE, FC_INDEX, static_cast<char*>(nullptr)));
    const Owned<FcFontSet> all(FcFontList(nullptr, any.get(), properties.get()));
    std::vector<SystemFont> fonts;
    for (int i = 0; all && i < all->nfont; ++i)
        addFont(fonts, all->fonts[i], displayName(all->fonts[i]));
    for (const StandIn& standIn : StandIns)
        withFontFor(standIn.language, [&](FcPattern* font) { addFont(fonts, font, standIn.face); });
    return fonts;
}

bool nativeFontFileExists(const std::string& path)
{
    std::error_code error;
    return std::filesystem::is_regular_file(path, error);
}

NativeFont nativeMessageFont()
{
    std::string face;
    withFontFor(nrd::misc::user_locale_name(),
                [&face](FcPattern* font) { face = textOf(font, FC_FAMILY); });
    return {.face = face.empty() ? AnyFamily : face};
}

} // namespace nui
