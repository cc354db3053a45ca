#include "support/nui/font_files.h"

#include <SDL2/SDL_filesystem.h>
#include <SDL2/SDL_stdinc.h>

#include <memory>

namespace nui::test {

namespace {

std::string besideProgram(const char* file)
{
    const std::unique_ptr<char, decltype(&SDL_free)> folder(SDL_GetBasePath(), SDL_free);
    return std::string(folder ? folder.get() : "") + "fonts/" + file;
}

} // namespace

std::string latinFontFile()
{
    return besideProgram("NotoSans-Regular.ttf");
}

std::string koreanFontFile()
{
    return besideProgram("Nanum Gothic.ttf");
}

} // namespace nui::test
