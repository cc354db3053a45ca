#pragma once

#include "nui/text/fonts.h"
#include "nui/text/lang.h"
#include "nui/text/system_fonts.h"

#include <string>

namespace nui {

/// What the choice of fonts asks the system for.
struct FontSurroundings {
    const SystemFonts& systemFonts;
    std::string deviceLanguage;   ///< of Lang
    std::string keyboardLanguage; ///< in Windows' three letters; empty if it is not known
};

/// Engine::changeLanguageAndFont, with what it works on.
bool changeLanguageAndFont(Fonts& fonts, Lang& lang, const char* selectedLang, bool detectInputLang,
                           const FontSurroundings& surroundings, const TextLog& log);

} // namespace nui
