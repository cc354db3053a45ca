#include "nui/text/choose_fonts.h"

#include "misc/text.h"
#include "nui/text/ftgl_font.h"
#include "nui/text/native_text.h"
#include "nui/text/win_font.h"

#include <utility>
#include <vector>

namespace nui {

namespace {

/// The files that come with the layouts, for languages that need one of their own.
struct FallbackFile {
    const char* language;
    const char* file;
};
constexpr FallbackFile FallbackFiles[] = {{"ko", "Nanum Gothic.ttf"}};
constexpr const char* GeneralFallbackFile = "NotoSans-Regular.ttf";

std::string fontFileOf(const std::string& folder, const char* file)
{
    const bool separated = folder.ends_with('/') || folder.ends_with('\\');
    return folder + (separated ? "" : "/") + file;
}

std::string detectedInputLang(const FontSurroundings& surroundings, const TextLog& log)
{
    log("detecting input lang...");
    std::string detected = surroundings.keyboardLanguage();
    nrd::misc::to_lower(detected);
    if (detected.empty())
        log("input lang was not detected");
    else
        log("engine input lang detected: " + detected);
    return detected;
}

/// Settles what language is spoken and what the fonts are for. False if neither changes.
bool changeLanguages(Fonts& fonts, Lang& lang, const char* selectedLang, bool detectInputLang,
                     const FontSurroundings& surroundings, const TextLog& log)
{
    const std::string detected =
        detectInputLang ? detectedInputLang(surroundings, log) : std::string();
    if (selectedLang == nullptr && detected.empty()) {
        log("leaving changeLanguageAndFont; no input lang provided and not detecting lang");
        return false;
    }
    bool changed = false;
    if (detectInputLang && detected != fonts.inputLang) {
        fonts.inputLang = detected;
        changed = true;
        log("engine input lang changed to: " + detected);
    }
    if (selectedLang == nullptr || lang.languageUnicode == selectedLang) {
        if (!changed) {
            log("leaving changeLanguageAndFont unchanged");
            return false;
        }
        if (selectedLang == nullptr) {
            log("engine language unicode unchanged as no selected lang provided");
            return true;
        }
    }
    lang.setLanguage(selectedLang);
    log("engine language unicode set to: " + lang.languageUnicode);
    return true;
}

void createFonts(Fonts& fonts, const TextLog& log)
{
    log("using native fonts");
    if (!fonts.defaultFont) {
        log("no current default font; initialising empty fonts");
        fonts.usingNativeFonts = true;
        fonts.defaultFont = std::make_unique<WinFont>("");
        log("default win font initialised");
    }
    if (!fonts.defaultEditFont) {
        log("no current default edit font; initialising default ftgl edit font");
        fonts.defaultEditFont = std::make_unique<FtglFont>("");
    }
}

void fallBack(Fonts& fonts, const TextLog& log)
{
    const char* file = nullptr;
    for (const FallbackFile& each : FallbackFiles) {
        if (fonts.inputLang == each.language)
            file = each.file;
    }
    if (file != nullptr) {
        log("choosing fallback font for input lang: " + fonts.inputLang);
        // Also in place of a font of the system's own language.
        fonts.defaultFontPath = fontFileOf(fonts.fontsDir, file);
    } else {
        log("choosing general fallback font");
        if (fonts.defaultFontPath.empty())
            fonts.defaultFontPath = fontFileOf(fonts.fontsDir, GeneralFallbackFile);
    }
    log("default font path has fallen back to: " + fonts.defaultFontPath);
}

/// A field may hold any language, whatever the font is chosen for.
void chooseStandIns(Fonts& fonts, const FontSurroundings& surroundings)
{
    auto* const editFont = dynamic_cast<FtglFont*>(fonts.defaultEditFont.get());
    if (editFont == nullptr)
        return;
    std::vector<std::string> files = surroundings.systemFonts().languageFontFiles(fonts.inputLang);
    files.push_back(fontFileOf(fonts.fontsDir, GeneralFallbackFile));
    for (const FallbackFile& each : FallbackFiles)
        files.push_back(fontFileOf(fonts.fontsDir, each.file));
    editFont->setStandIns(std::move(files));
}

void chooseEditFont(Fonts& fonts, const FontSurroundings& surroundings, const TextLog& log)
{
    const std::string deviceLanguage = surroundings.deviceLanguage();
    bool languageSearch = !fonts.inputLang.starts_with(deviceLanguage);
    log(std::string("language search: ") + (languageSearch ? "true" : "false"));
    log("this->inputLang: " + fonts.inputLang);
    log("Lang::getDeviceLanguage(): " + deviceLanguage);
    log("defaultFont->getFaceName(): " + fonts.defaultFont->getFaceName());
    log("defaultPrintFont: " + fonts.defaultPrintFont);
    fonts.defaultFontPath =
        surroundings.systemFonts().findSystemFont(fonts.inputLang, fonts.defaultFont->getFaceName(),
                                                  languageSearch, fonts.defaultPrintFont, log);
    log("default font path identified as: " + fonts.defaultFontPath);
    if (fonts.defaultFontPath.empty())
        languageSearch = false;
    if (!languageSearch)
        fallBack(fonts, log);
    chooseStandIns(fonts, surroundings);
    fonts.defaultEditFont->setFont(fonts.defaultFontPath);
    log("setting default edit font to " + fonts.defaultFontPath);
}

} // namespace

bool changeLanguageAndFont(Fonts& fonts, Lang& lang, const char* selectedLang, bool detectInputLang,
                           const FontSurroundings& surroundings, const TextLog& log)
{
    log("entering changeLanguageAndFont");
    if (!changeLanguages(fonts, lang, selectedLang, detectInputLang, surroundings, log))
        return false;
    // The code of the language file for Japanese is not the one that the world uses.
    setNativeTextLanguage(lang.languageUnicode == "jp" ? "ja" : lang.languageUnicode);
    if (fonts.inputLang.empty()) {
        fonts.inputLang = lang.languageUnicode;
        log("input lang empty; setting to engine language unicode: " + fonts.inputLang);
    }
    createFonts(fonts, log);
    if (auto* const font = dynamic_cast<WinFont*>(fonts.defaultFont.get()))
        font->forgetMeasures();
    chooseEditFont(fonts, surroundings, log);
    log("leaving changeLanguageFont");
    return true;
}

} // namespace nui
