#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace nui {

/// A text as FTGL lays it out. Lengths are in pixels, from the left end of the lines; indices count
/// characters.
struct TextLines {
    struct Character {
        float x = 0; ///< of the pen in front of it
        std::int32_t line = 0;
        std::uint8_t file = 0; ///< of the font's, that has the glyph
        bool drawn = false;    ///< the library drops what ends a line
    };
    struct Line {
        std::int32_t first = -1; ///< negative where nothing stands, not even the text's end
        std::int32_t last = -2;  ///< less than `first` for a line without characters
        float width = 0;         ///< to the end of the last character that is no blank
        float end = 0;           ///< of the pen behind the last character
        float left = 0;          ///< of the box around what is drawn, if `hasBox`
        float right = 0;
        bool hasBox = false;

        [[nodiscard]] bool isEmpty() const { return last < first; }
    };

    std::string text;                  ///< valid UTF-8
    std::vector<std::uint32_t> starts; ///< first byte of each character, and the text's end
    std::vector<Character> characters; ///< one more than there are: the place behind the last
    std::vector<Line> lines;           ///< at least one
    float width = 0;                   ///< of the box around all that is drawn

    [[nodiscard]] std::int32_t length() const
    {
        return static_cast<std::int32_t>(starts.size()) - 1;
    }
};

} // namespace nui
