#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace nui {

/// A font file, and those that stand in for characters that it lacks. Each is read when it is first
/// needed.
class FontFiles {
public:
    /// Paths as of Font::fontPath; the first is the font's own.
    explicit FontFiles(const std::vector<std::string>& paths);
    ~FontFiles();
    FontFiles(const FontFiles&) = delete;
    FontFiles& operator=(const FontFiles&) = delete;

    /// Of the first file with the character; 0 if none has it.
    [[nodiscard]] std::size_t indexFor(char32_t character);
    /// From line to line, in heights of a character, of the font's own file; 0 if that is none. It
    /// is what the designer wants: FTGL would leave room for the highest glyph of all.
    [[nodiscard]] float lineHeight();
    /// Empty if there is no such font; keeps its place.
    [[nodiscard]] const std::string& contentOf(std::size_t index);

private:
    struct File;

    std::vector<std::unique_ptr<File>> files_;
};

} // namespace nui
