#pragma once

#include <memory>
#include <string>

struct SDL_Surface;

namespace nui {

struct FreeSurface {
    void operator()(SDL_Surface* surface) const;
};

/// Pixels in main memory.
using SurfacePtr = std::unique_ptr<SDL_Surface, FreeSurface>;

/// Any picture file; the path is UTF-8. Null if it cannot be read.
[[nodiscard]] SurfacePtr loadSurface(const std::string& path);

} // namespace nui
