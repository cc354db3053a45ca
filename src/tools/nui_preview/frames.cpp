#include "tools/nui_preview/frames.h"

#include "nui/engine/engine.h"
#include "nui/widgets/screen.h"

#include <SDL2/SDL.h>
#include <algorithm>

namespace nrd::tools::preview {

namespace {

constexpr int most_turns = 100;
constexpr int calm_turns = 3;
constexpr double milliseconds = 1000;

bool is_at_rest()
{
    SDL_PumpEvents();
    const auto& screens = nui::engine().screens.all();
    return SDL_HasEvents(SDL_FIRSTEVENT, SDL_LASTEVENT) == SDL_FALSE &&
           std::none_of(screens.begin(), screens.end(),
                        [](const auto& entry) { return entry.second->dirty; });
}

} // namespace

void turn()
{
    nui::engine().step();
    nui::engine().draw(false);
}

void settle()
{
    // The window system answers a change of size with events, and they with another layout.
    int calm = 0;
    for (int turns = 0; turns < most_turns && calm < calm_turns; ++turns) {
        turn();
        calm = is_at_rest() ? calm + 1 : 0;
    }
}

void run_for(double seconds)
{
    const Uint64 end = SDL_GetTicks64() + static_cast<Uint64>(seconds * milliseconds);
    while (SDL_GetTicks64() < end && !nui::engine().hasQuit()) {
        if (nui::engine().step()) {
            nui::engine().draw(false);
        }
    }
}

} // namespace nrd::tools::preview
