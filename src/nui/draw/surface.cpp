#include "nui/draw/surface.h"

#include <SDL2/SDL_image.h>
#include <SDL2/SDL_surface.h>

namespace nui {

void FreeSurface::operator()(SDL_Surface* surface) const
{
    SDL_FreeSurface(surface);
}

SurfacePtr loadSurface(const std::string& path)
{
    return SurfacePtr(IMG_Load(path.c_str()));
}

} // namespace nui
