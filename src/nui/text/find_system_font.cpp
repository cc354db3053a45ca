#include "nui/text/system_fonts.h"

#include <array>

namespace nui {

namespace {

struct FontRow {
    const char* prefix; ///< of a language or a keyboard
    const char* face;
    const char* file;
    const char* suffix; ///< of the path: the face in the collection
};

constexpr std::size_t CellsOfRow = 4;

/// The row without a prefix ends the table: what it names is never looked for.
constexpr std::array<FontRow, 5> Rows = {{
    {"jp", "Yu Gothic UI", "YuGothM.ttc", "?1"},
    {"ko", "Malgun Gothic UI", "malgun.ttf", ""},
    {"chs", "Microsoft YaHei UI", "msyh.ttc", "?1"},
    {"cht", "Microsoft JhengHei UI", "msjh.ttc", "?1"},
    {"", "Segoe UI", "segoeui.ttf", ""},
}};

bool isLast(const FontRow& row)
{
    return *row.prefix == '\0';
}

/// The keyboard of a language, where the table knows that alone.
std::string keyboardOf(const std::string& lang)
{
    if (lang == "zh-Hans")
        return "chs";
    return lang == "zh-Hant" ? "cht" : lang;
}

} // namespace

std::vector<std::string> SystemFonts::languageFontFiles(const std::string& lang) const
{
    const std::string wanted = keyboardOf(lang);
    std::vector<std::string> files;
    for (const FontRow& row : Rows) {
        const std::string file = isLast(row) ? std::string() : findFontfileSafe(row.face);
        if (!file.empty())
            files.insert(wanted.starts_with(row.prefix) ? files.begin() : files.end(), file);
    }
    return files;
}

// What is logged are pieces of older code, and stays so: those who read the logs know them.
std::string SystemFonts::findSystemFont(const std::string& lang, const std::string& nativeName,
                                        bool& specificLanguage, std::string& printFont,
                                        const TextLog& log) const
{
    std::string path;
    if (!nativeName.empty()) {
        log("!nativeName.empty()");
        log("nativeName: " + nativeName);
        path = findFontfileSafe(nativeName);
        log("path: " + path);
    }
    if (!path.empty()) {
        log("!path.empty()");
        if (!specificLanguage)
            return forTheSystemsLanguage(lang, nativeName, path, printFont, log);
    }
    const Choice choice = chooseRow(lang, nativeName, path, specificLanguage, log);
    if (choice.isNative) {
        findBestSystemPrintFont(choice.face, printFont);
        return path;
    }
    if (choice.path.empty()) {
        log("path2.empty()");
        log("specificLanguage = false;");
        specificLanguage = false;
        findBestSystemPrintFont("", printFont);
        return path;
    }
    if (specificLanguage) {
        log("findBestSystemPrintFont(systemFonts[i + 1], printFont);");
        log("systemFonts[i + 1]: " + choice.face);
        log("printFont: " + printFont);
        findBestSystemPrintFont(choice.face, printFont);
    } else if (!path.empty()) {
        findBestSystemPrintFont("", printFont);
        return path;
    }
    log("path2: " + choice.path);
    return choice.path;
}

std::string SystemFonts::forTheSystemsLanguage(const std::string& lang,
                                               const std::string& nativeName,
                                               const std::string& path, std::string& printFont,
                                               const TextLog& log) const
{
    log("!specificLanguage");
    for (const FontRow& row : Rows) {
        if (isLast(row))
            break;
        log(std::string("systemFonts[k]: ") + row.prefix);
        if (lang.starts_with(row.prefix)) {
            log("strutil::stringStartsWith(lang, systemFonts[k]): true");
            findBestSystemPrintFont(nativeName, printFont);
            return path;
        }
    }
    findBestSystemPrintFont("", printFont);
    return path;
}

SystemFonts::Choice SystemFonts::chooseRow(const std::string& lang, const std::string& nativeName,
                                           const std::string& path, bool& specificLanguage,
                                           const TextLog& log) const
{
    for (std::size_t i = 0; !isLast(Rows.at(i)); ++i) {
        const FontRow& row = Rows.at(i);
        log("i value: " + std::to_string(i * CellsOfRow));
        log(std::string("systemFonts[i + 1]: ") + row.face);
        const bool nameMatch = nativeName == row.face;
        // Every row says anew whether the language is its own.
        specificLanguage = lang.starts_with(row.prefix);
        if (!specificLanguage && (!path.empty() || !nameMatch))
            continue;
        if (nameMatch && !path.empty()) {
            log("nameMatch && !path.empty()");
            return {.path = path, .face = row.face, .isNative = true};
        }
        if (!nameMatch) {
            if (const std::string path2 = findFontfileSafe(row.face); !path2.empty()) {
                log("path2 = findFontfileSafe(systemFonts[i + 1]): " + path2);
                return {.path = path2, .face = row.face};
            }
            log("path2 is empty");
        }
        const std::string path2 = byFileName(row.file, row.suffix, log);
        if (!path2.empty())
            return {.path = path2, .face = row.face};
    }
    return {};
}

std::string SystemFonts::byFileName(const std::string& file, const std::string& suffix,
                                    const TextLog& log) const
{
    log(std::string("systemFonts[i + 2][0] == 0: ") + (file.empty() ? "true" : "false"));
    if (file.empty())
        return {};
    log("path2 = fontsPath + systemFonts[i + 2];");
    const std::string path = pathOf(file);
    if (!fileExists_(path)) {
        log("path2.clear();");
        return {};
    }
    log("path2 += systemFonts[i + 3];");
    return path + suffix;
}

} // namespace nui
