#include "nui/text/system_fonts.h"

#include "misc/text.h"
#include "nui/reader/resource_path.h"
#include "nui/text/native_fonts.h"

#include <algorithm>
#include <utility>

namespace nui {

namespace {

constexpr std::size_t EndingLength = 4; // ".ttf"
constexpr std::string_view FamilySeparator = " & ";

std::string lowered(std::string_view text)
{
    std::string lower(text);
    nrd::misc::to_lower(lower);
    return lower;
}

bool isFontFile(std::string_view file)
{
    if (file.size() <= EndingLength)
        return false;
    const std::string ending = lowered(file.substr(file.size() - EndingLength));
    return ending == ".ttf" || ending == ".otf" || ending == ".ttc";
}

SystemFont fontNamed(std::string_view family, std::string_view file, std::int32_t index)
{
    SystemFont font{.family = std::string(family), .style = {}, .file = std::string(file)};
    font.index = index;
    const std::string lower = lowered(family);
    // "regular" and "medium" are plain, and so no words of a style.
    for (const std::string_view word : {"bold", "demi", "italic"}) {
        if (lower.find(word) == std::string::npos)
            continue;
        font.style += (font.style.empty() ? "" : " ") + std::string(word);
        (word == "italic" ? font.italic : font.bold) = true;
    }
    return font;
}

std::string_view withoutEnd(std::string_view text, std::string_view end)
{
    if (text.ends_with(end))
        text.remove_suffix(end.size());
    return text;
}

} // namespace

std::vector<SystemFont> fontsOfRegistryValue(std::string_view name, std::string_view data)
{
    std::vector<SystemFont> fonts;
    if (!isFontFile(data))
        return fonts;
    std::string_view families = name.substr(0, name.find(" ("));
    for (std::int32_t index = 0;; ++index) {
        const std::size_t end = families.find(FamilySeparator);
        fonts.push_back(fontNamed(families.substr(0, end), data, index));
        if (end == families.npos)
            return fonts;
        families.remove_prefix(end + FamilySeparator.size());
    }
}

SystemFonts::SystemFonts(std::string folder, std::vector<SystemFont> fonts, FileCheck fileExists)
    : folder_(std::move(folder)), fonts_(std::move(fonts)), fileExists_(fileExists)
{
    std::ranges::stable_sort(fonts_, {}, &SystemFont::family);
}

const SystemFonts& SystemFonts::ofThisSystem()
{
    static const SystemFonts fonts(nativeFontsFolder(), nativeFonts(), nativeFontFileExists);
    return fonts;
}

const SystemFont* SystemFonts::familyNamed(std::string_view name) const
{
    const auto found = std::ranges::lower_bound(fonts_, name, {}, &SystemFont::family);
    return found != fonts_.end() && found->family == name ? &*found : nullptr;
}

const SystemFont* SystemFonts::familyBeginning(std::string_view name) const
{
    const auto found = std::ranges::lower_bound(fonts_, name, {}, &SystemFont::family);
    return found != fonts_.end() && found->family.starts_with(name) ? &*found : nullptr;
}

std::string SystemFonts::pathOf(const std::string& file) const
{
    return isAbsoluteName(file) ? file : folder_ + file;
}

std::string SystemFonts::findFontfileSafe(const std::string& name) const
{
    const SystemFont* const font = familyBeginning(name);
    if (font == nullptr)
        return {};
    const std::string path = pathOf(font->file);
    if (!fileExists_(path))
        return {};
    return font->index > 0 ? path + "?" + std::to_string(font->index) : path;
}

void SystemFonts::findBestSystemPrintFont(const std::string& name, std::string& printFont) const
{
    printFont.clear();
    const SystemFont* found = nullptr;
    if (!name.empty()) {
        const std::string cut(withoutEnd(withoutEnd(name, "Regular"), " UI"));
        found = familyNamed(cut + " Regular");
        if (found == nullptr)
            found = familyNamed(cut);
        if (found == nullptr)
            found = familyNamed(name);
        if (found == nullptr)
            found = familyBeginning(cut);
    }
    if (found == nullptr)
        found = familyBeginning("Arial");
    if (found != nullptr)
        printFont = found->family;
}

} // namespace nui
