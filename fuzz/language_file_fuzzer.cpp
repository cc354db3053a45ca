// The input is a language file. Its texts are those of a plain reading of the table, in each of
// its languages; a row that does not fit the heading breaks the file.

#include "check.h"
#include "nui/text/lang.h"
#include "scratch_machine.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

std::vector<std::string> cells_of(std::string line)
{
    std::vector<std::string> cells;
    if (line.find('\t') == std::string::npos) {
        return cells;
    }
    if (line.back() == '\r') {
        line.pop_back();
    }
    std::string cell;
    for (const char letter : line + '\t') {
        if (letter == '\t') {
            cells.push_back(cell);
            cell.clear();
        } else {
            cell += letter;
        }
    }
    return cells;
}

struct table {
    std::vector<std::string> headings;
    std::map<std::string, std::string> texts; ///< by heading and key
    bool broken = false;
};

table read(const std::string& content)
{
    table result;
    std::istringstream lines(content);
    std::string line;
    std::getline(lines, line);
    result.headings = cells_of(line);
    while (!result.headings.empty() && std::getline(lines, line)) {
        const std::vector<std::string> cells = cells_of(line);
        if (cells.size() != result.headings.size()) {
            result.broken = true;
            break;
        }
        for (std::size_t i = 1; i < cells.size(); ++i) {
            result.texts.try_emplace(result.headings[i] + cells[0],
                                     cells[i] == "~" ? cells[1] : cells[i]);
        }
    }
    return result;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const std::string content(reinterpret_cast<const char*>(data), size);
    const std::string path = (scratch_machine() / "langfile.txt").string();
    std::ofstream(path, std::ios::binary) << content;
    const table expected = read(content);

    nui::Lang lang("");
    bool broken = false;
    try {
        lang.load(path);
    } catch (const std::out_of_range& error) {
        broken = std::string(error.what()) == "Language file is broken.";
    }
    check(broken == expected.broken, "only a row of another length breaks the file");
    check(lang.columnCount == static_cast<int>(expected.headings.size()), "columns are counted");
    for (std::size_t i = 1; i < expected.headings.size(); ++i) {
        lang.setLanguage(expected.headings[i]);
        for (const auto& [name, text] : expected.texts) {
            if (!name.starts_with(lang.languageUnicode)) {
                continue;
            }
            const std::string key = name.substr(lang.languageUnicode.size());
            check(key.empty() || lang.getString(key) == text, "a text is found by its key");
            const std::string formatted = lang.format(key, "<1>", "<2>");
            check(key.empty() ? formatted.empty() : formatted.size() + 2 >= text.size(),
                  "marks are replaced");
        }
    }
    return 0;
}
