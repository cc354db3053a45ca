#include "tools/nui_preview/preview.h"

#include <SDL2/SDL_main.h>
#include <iostream>

int main(int argc, char* argv[])
{
    nrd::tools::preview::preview run(std::vector<std::string>(argv, argv + argc), std::cout,
                                     std::cerr);
    return static_cast<int>(run.run());
}
