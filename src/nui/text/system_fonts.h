#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace nui {

/// A face that the system has.
struct SystemFont {
    std::string family;     ///< with its style, as the system shows it: "Arial Bold"
    std::string style;      ///< words of the family that say it, in lower case; none for plain
    std::string file;       ///< below the folder of the fonts, or absolute
    std::int32_t index = 0; ///< of the face in a collection
    bool bold = false;
    bool italic = false;
};

/// The records of a value of the registry's list of fonts: its name holds families, its data is
/// the file. None for what is no font that the toolkit can open.
[[nodiscard]] std::vector<SystemFont> fontsOfRegistryValue(std::string_view name,
                                                           std::string_view data);

using TextLog = std::function<void(const std::string&)>;

/// The fonts of a system, and which of them suits a language.
class SystemFonts {
public:
    using FileCheck = bool (*)(const std::string& path);

    /// `folder` ends in a separator. `fileExists` is asked for paths in UTF-8.
    SystemFonts(std::string folder, std::vector<SystemFont> fonts, FileCheck fileExists);

    /// Of this system; read once.
    [[nodiscard]] static const SystemFonts& ofThisSystem();

    /// The font file for a language or a keyboard, given the face that the system itself writes
    /// with; empty if there is none. `specificLanguage` says whether that face may not do, and
    /// afterwards whether the file was chosen for the language. `printFont` becomes the family to
    /// print with. `log` is told each decision.
    [[nodiscard]] std::string findSystemFont(const std::string& lang, const std::string& nativeName,
                                             bool& specificLanguage, std::string& printFont,
                                             const TextLog& log) const;
    /// The file of the first family that begins with the name, with "?" and an index above 0;
    /// empty if there is none.
    [[nodiscard]] std::string findFontfileSafe(const std::string& name) const;
    /// The files of the faces that are made for some language, those for `lang` first.
    [[nodiscard]] std::vector<std::string> languageFontFiles(const std::string& lang) const;
    /// The family to print with in place of a face of the screen; empty without even an Arial.
    void findBestSystemPrintFont(const std::string& name, std::string& printFont) const;

private:
    /// What a row of the table of languages led to.
    struct Choice {
        std::string path;
        std::string face;
        bool isNative = false; ///< the system's own face is the row's
    };

    [[nodiscard]] std::string forTheSystemsLanguage(const std::string& lang,
                                                    const std::string& nativeName,
                                                    const std::string& path, std::string& printFont,
                                                    const TextLog& log) const;
    [[nodiscard]] Choice chooseRow(const std::string& lang, const std::string& nativeName,
                                   const std::string& path, bool& specificLanguage,
                                   const TextLog& log) const;
    [[nodiscard]] std::string byFileName(const std::string& file, const std::string& suffix,
                                         const TextLog& log) const;
    [[nodiscard]] const SystemFont* familyNamed(std::string_view name) const;
    [[nodiscard]] const SystemFont* familyBeginning(std::string_view name) const;
    [[nodiscard]] std::string pathOf(const std::string& file) const;

    std::string folder_;
    std::vector<SystemFont> fonts_; ///< by family
    FileCheck fileExists_;
};

} // namespace nui
