#pragma once

#include "nui/text/fonts.h"
#include "nui/text/lang.h"
#include "nui/text/system_fonts.h"

#include <functional>
#include <string>

namespace nui {

/// What the choice of fonts asks the system for, each when its turn comes: most calls change
/// nothing and need none of it.
struct FontSurroundings {
    std::function<const SystemFonts&()> systemFonts;
    std::function<std::string()> deviceLanguage;   ///< of Lang
    std::function<std::string()> keyboardLanguage; ///< in Windows' three letters, or empty
};

/// Engine::changeLanguageAndFont, with what it works on.
bool changeLanguageAndFont(Fonts& fonts, Lang& lang, const char* selectedLang, bool detectInputLang,
                           const FontSurroundings& surroundings, const TextLog& log);

} // namespace nui
