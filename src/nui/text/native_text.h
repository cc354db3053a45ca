#pragma once

#include "nui/text/font.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

// Text as the platform itself writes it. A text without a character is 0 by 0.

namespace nui {

struct NativeFace;
struct CloseNativeFace {
    void operator()(NativeFace* face) const;
};
/// What a face is chosen by.
struct NativeFont {
    std::string face;        ///< another is taken where the platform has none of this name
    std::int32_t weight = 0; ///< 400 is plain, 700 bold; 0 leaves it to the platform
    bool italic = false;

    [[nodiscard]] bool operator==(const NativeFont&) const = default;
};

/// A font in one size.
using NativeFacePtr = std::unique_ptr<NativeFace, CloseNativeFace>;

/// The language whose shapes of characters are preferred from now on ("ja"), where the platform
/// has several.
void setNativeTextLanguage(const std::string& code);

/// `pixels` is the height of a character without the space between lines.
[[nodiscard]] NativeFacePtr openNativeFace(const NativeFont& font, std::int32_t pixels);
/// Of a line, in pixels.
[[nodiscard]] std::int32_t nativeLineHeight(const NativeFace& face);

struct PixelSize {
    std::int32_t width = 0;
    std::int32_t height = 0;
};

/// Of lines that end at line feeds, and at `width` if they wrap.
[[nodiscard]] PixelSize measureNativeText(const NativeFace& face, const std::string& text,
                                          std::int32_t width, bool wrap);

/// How much of each pixel is covered, row by row.
struct Coverage {
    Coverage(std::int32_t w, std::int32_t h)
        : width(w), height(h), pixels(static_cast<std::size_t>(w) * static_cast<std::size_t>(h))
    {
    }

    std::int32_t width;
    std::int32_t height;
    std::vector<std::uint8_t> pixels;
};

struct NativeTextBox {
    std::int32_t top = 0;   ///< of the first line; the box is as wide as the picture
    std::int32_t lines = 1; ///< more are cut, with "..."
    TextAlignment alignment = TextAlignment::Left;
    bool wrap = true;
};

/// Into a picture without a side of 0. False, with the picture as it was, if the platform has no
/// memory for one of that size.
[[nodiscard]] bool drawNativeText(const NativeFace& face, const std::string& text,
                                  const NativeTextBox& box, Coverage& picture);

} // namespace nui
