#pragma once

#include "nui/text/font.h"

#include <cstdint>
#include <memory>
#include <string>

namespace nui {

/// The fonts in force and what they were chosen for. The engine's; Engine::changeLanguageAndFont
/// fills it.
struct Fonts {
    std::unique_ptr<Font> defaultFont;     ///< draws labels; null until first chosen
    std::unique_ptr<Font> defaultEditFont; ///< draws fields, which need places of characters
    std::string defaultFontPath;           ///< file of the edit font; see Font::fontPath
    std::string defaultPrintFont;          ///< a face name, chosen together with it
    std::string inputLang;                 ///< language or keyboard that the fonts are chosen for
    std::string fontsDir;                  ///< holds the font files that come with the layouts
    std::int16_t fontSizeOffset = 0;       ///< added to every positive font size
    bool usingNativeFonts = false;
};

} // namespace nui
