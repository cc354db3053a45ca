#include "nui/text/clipboard.h"

#include <SDL_clipboard.h>
#include <SDL_stdinc.h>

namespace nui {

std::string clipboardText()
{
    char* const text = SDL_GetClipboardText();
    std::string copied = text != nullptr ? text : "";
    SDL_free(text);
    return copied;
}

} // namespace nui
