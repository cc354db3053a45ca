#include "vs/vs_installer/startup.h"
#include "vs/vs_installer/wizard.h"

#include <SDL2/SDL_main.h>

// No exception is caught: one that gets here ends the process, and the log tells what led to it.
int main(int argc, char* argv[])
{
    nrd::vs_installer::startup startup(std::vector<std::string>(argv, argv + argc));
    if (startup.run() != nrd::vs_installer::startup_result::ready) {
        return 1;
    }
    nrd::vs_installer::run_wizard(startup.data_dir, startup.specs);
    return 0;
}
