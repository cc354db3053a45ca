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
/// A face in one size.
using NativeFacePtr = std::unique_ptr<NativeFace, CloseNativeFace>;

/// The language whose shapes of characters are preferred from now on ("ja"), where the platform
/// has several.
void setNativeTextLanguage(const std::string& code);

/// The platform takes another face where it has none of this name. `pixels` is the height of a
/// character without the space between lines.
[[nodiscard]] NativeFacePtr openNativeFace(const std::string& name, std::int32_t pixels);
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

/// Into a picture without a side of 0.
void drawNativeText(const NativeFace& face, const std::string& text, const NativeTextBox& box,
                    Coverage& picture);

} // namespace nui
