#include "nui/text/lang.h"

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

} // namespace

Lang::Lang(const std::string& path)
{
    const std::string content = contentOf(path);
    std::string_view rest = content;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        readLine(cellsOf(rest.substr(0, end)));
        if (headings_.empty())
            return;
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
}

void Lang::readLine(std::vector<std::string> cells)
{
    if (headings_.empty()) {
        headings_ = std::move(cells);
        return;
    }
    if (cells.size() != headings_.size())
        throw std::out_of_range("Language file is broken.");
    for (std::size_t column = 1; column < cells.size(); ++column) {
        const std::string& text = cells[column] == SameAsFirst ? cells[1] : cells[column];
        // The first row of a key wins.
        translations_.emplace(headings_[column] + cells[0], text);
    }
}

std::string Lang::getString(const std::string& key) const
{
    const auto found = translations_.find(languageUnicode + key);
    return key.empty() || found == translations_.end() ? key : found->second;
}

bool Lang::has(const std::string& key) const
{
    return translations_.contains(languageUnicode + key);
}

} // namespace nui
