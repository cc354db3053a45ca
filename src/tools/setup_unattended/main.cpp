#include "tools/setup_unattended/terminal.h"
#include "tools/setup_unattended/unattended_run.h"

#include <SDL2/SDL_main.h>
#include <iostream>

int main(int argc, char* argv[])
{
    nrd::tools::outlive_readers();
    const auto terminal = nrd::tools::use_utf8_terminal();
    nrd::tools::unattended_run run(std::vector<std::string>(argv, argv + argc), std::cout,
                                   std::cerr);
    return static_cast<int>(run.run());
}
