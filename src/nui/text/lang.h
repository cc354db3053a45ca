#pragma once

#include <map>
#include <string>
#include <vector>

namespace nui {

/// The texts of the user interface in the current language. A text without an entry stands for
/// itself, so layout files may hold plain text.
class Lang {
public:
    /// Reads a tab-separated table: a heading of language codes, then a key and its texts a
    /// line. A missing file gives an empty table. A row with another number of cells throws
    /// std::out_of_range.
    explicit Lang(const std::string& path);

    [[nodiscard]] std::string getText(const char* key) const { return getString(key); }
    [[nodiscard]] std::string getString(const std::string& key) const;
    [[nodiscard]] bool has(const std::string& key) const;

    std::string languageUnicode; ///< code of the current language: a heading of the table

private:
    void readLine(std::vector<std::string> cells);

    std::vector<std::string> headings_;               ///< the first line; its cell 0 says nothing
    std::map<std::string, std::string> translations_; ///< by language and key, joined
};

} // namespace nui
