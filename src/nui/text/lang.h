#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace nui {

/// The texts of the user interface in the current language. A text without an entry stands for
/// itself, so layout files may hold plain text.
class Lang {
public:
    /// Reads a tab-separated table: a heading of language codes, then a key and its texts a
    /// line. A missing file gives an empty table. A row with another number of cells throws
    /// std::out_of_range.
    explicit Lang(const std::string& path) { load(path); }

    /// Takes another file's texts instead. Without a heading it changes none; of a broken file the
    /// rows before the broken one are there.
    void load(const std::string& path);

    [[nodiscard]] std::string getText(const char* key) const;
    /// The same, but for the empty key, whose text is empty also if it has one.
    [[nodiscard]] std::string getString(const std::string& key) const;
    [[nodiscard]] bool has(const std::string& key) const;
    /// The text with the first "%1" in it, and the first "%2", replaced.
    [[nodiscard]] std::string format(const std::string& key, const std::string& arg1) const;
    [[nodiscard]] std::string format(const std::string& key, const std::string& arg1,
                                     const std::string& arg2) const;
    /// How numbers are written in the current language.
    [[nodiscard]] bool usesDecimalComma() const;

    /// The code of the language of the user's system; English where there are no fonts for it.
    [[nodiscard]] static std::string getDeviceLanguage();
    /// The same for a number of Windows'.
    [[nodiscard]] static std::string deviceLanguageOf(std::uint16_t id);

    /// To a heading of the table.
    void setLanguage(const std::string& code);

    std::int32_t columnCount = 0; ///< cells of the heading
    std::string languageUnicode;  ///< code of the current language: a heading of the table
    std::string languageCode;     ///< its first two letters

private:
    std::map<std::string, std::string> translations_; ///< by language and key, joined
};

} // namespace nui
