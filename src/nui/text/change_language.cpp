#include "nui/engine/engine.h"

namespace nui {

bool Engine::changeLanguageAndFont(const char* selectedLang, bool /*detectInputLang*/,
                                   const std::function<void(const std::string&)>& log)
{
    log("entering changeLanguageAndFont");
    if (selectedLang == nullptr || !lang) {
        log("leaving changeLanguageAndFont; no input lang provided and not detecting lang");
        return false;
    }
    if (lang->languageUnicode == selectedLang) {
        log("leaving changeLanguageAndFont unchanged");
        return false;
    }
    lang->languageUnicode = selectedLang;
    log("engine language unicode set to: " + lang->languageUnicode);
    return true;
}

} // namespace nui
