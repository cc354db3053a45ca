#include "nui/text/lang.h"

#include "misc/system_info.h"
#include "nui/reader/resource_file.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace nui {

namespace {

/// In place of a text: that of the first language.
constexpr std::string_view SameAsFirst = "~";

/// A line without a tab has no cells.
std::vector<std::string> cellsOf(std::string_view line)
{
    std::vector<std::string> cells;
    if (line.find('\t') == line.npos)
        return cells;
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    for (std::size_t tab = line.find('\t'); tab != line.npos; tab = line.find('\t')) {
        cells.emplace_back(line.substr(0, tab));
        line.remove_prefix(tab + 1);
    }
    cells.emplace_back(line);
    return cells;
}

/// Takes the line off the text.
std::string_view nextLine(std::string_view& text)
{
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

/// Nothing for a mark that was not found.
void replaceMark(std::string& text, std::size_t place, const std::string& argument)
{
    constexpr std::size_t MarkLength = 2;
    if (place != std::string::npos)
        text.replace(place, MarkLength, argument);
}

/// Whole, also with a U+0000 in it.
std::string textOf(const std::map<std::string, std::string>& translations,
                   const std::string& language, const std::string& key)
{
    const auto found = translations.find(language + key);
    return found == translations.end() ? key : found->second;
}

} // namespace

void Lang::load(const std::string& path)
{
    const std::string content = contentOf(path);
    std::string_view rest = content;
    const std::vector<std::string> headings = cellsOf(nextLine(rest));
    columnCount = static_cast<std::int32_t>(headings.size());
    if (headings.empty())
        return;
    translations_.clear();
    while (!rest.empty()) {
        const std::vector<std::string> cells = cellsOf(nextLine(rest));
        if (cells.size() != headings.size())
            throw std::out_of_range("Language file is broken.");
        for (std::size_t column = 1; column < cells.size(); ++column) {
            const std::string& text = cells[column] == SameAsFirst ? cells[1] : cells[column];
            // The first row of a key wins.
            translations_.emplace(headings[column] + cells[0], text);
        }
    }
}

std::string Lang::getText(const char* key) const
{
    return textOf(translations_, languageUnicode, key);
}

std::string Lang::getString(const std::string& key) const
{
    return key.empty() ? std::string() : textOf(translations_, languageUnicode, key);
}

bool Lang::has(const std::string& key) const
{
    return translations_.contains(languageUnicode + key);
}

std::string Lang::format(const std::string& key, const std::string& arg1) const
{
    std::string text = getString(key);
    replaceMark(text, text.find("%1"), arg1);
    return text;
}

std::string Lang::format(const std::string& key, const std::string& arg1,
                         const std::string& arg2) const
{
    std::string text = getString(key);
    const std::size_t first = text.find("%1");
    const std::size_t second = text.find("%2");
    // From the back, so that no mark inside an argument is taken for one of the text.
    if (first < second) {
        replaceMark(text, second, arg2);
        replaceMark(text, first, arg1);
    } else {
        replaceMark(text, first, arg1);
        replaceMark(text, second, arg2);
    }
    return text;
}

bool Lang::usesDecimalComma() const
{
    // Not all of them are codes that the table has.
    constexpr std::string_view WithComma[] = {"pt", "es", "fr", "de", "it", "nl",
                                              "cz", "da", "sw", "po", "ru"};
    return std::ranges::find(WithComma, languageCode) != std::end(WithComma);
}

std::string Lang::getDeviceLanguage()
{
    return deviceLanguageOf(nrd::misc::user_language_id());
}

std::string Lang::deviceLanguageOf(std::uint16_t id)
{
    constexpr std::uint16_t CustomLanguage = 0x1400;
    constexpr std::uint16_t PrimaryLanguage = 0x3FF;
    if (id == CustomLanguage)
        return "en";
    switch (id & PrimaryLanguage) {
    case 22:
        return "pt";
    case 10:
        return "es";
    case 12:
        return "fr";
    case 7:
        return "de";
    case 18:
        return "ko";
    case 17:
        return "jp";
    default:
        return "en";
    }
}

void Lang::setLanguage(const std::string& code)
{
    languageUnicode = code;
    languageCode = code.substr(0, 2);
}

} // namespace nui
