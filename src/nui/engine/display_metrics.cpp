#include "nui/engine/display_metrics.h"

#include <SDL2/SDL.h>

#include <algorithm>

namespace nui {

namespace {

constexpr int Display = 0;
constexpr float DotsPerPoint = 72;

} // namespace

bool DisplayMetrics::read()
{
    float dpi = 0;
    bool changed = false;
    if (SDL_GetDisplayDPI(Display, &dpi, nullptr, nullptr) == 0 && dpi != 0) {
        const float told = dpi / DotsPerPoint;
        changed = told != displayScale;
        displayScale = told;
    } else if (displayScale == 0) {
        SDL_Log("Using default ddpi");
        displayScale = 1;
    } else {
        SDL_Log("Keeping old ddpi");
    }
    SDL_Rect bounds = {0, 0, width, height};
    SDL_GetDisplayBounds(Display, &bounds);
    width = bounds.w;
    height = bounds.h;
    smallerSide = std::min(width, height);
    SDL_Rect usable = {0, 0, usableWidth, usableHeight};
    SDL_GetDisplayUsableBounds(Display, &usable);
    usableWidth = usable.w;
    usableHeight = usable.h;
    textScale = scale * displayScale;
    return changed;
}

void DisplayMetrics::setScale(float factor)
{
    scale = factor;
    textScale = scale * displayScale;
}

} // namespace nui
