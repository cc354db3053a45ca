#include "nui/reader/resource_file.h"

#include <SDL_rwops.h>
#include <SDL_stdinc.h>

#include <memory>

namespace nui {

std::string contentOf(const std::string& path)
{
    std::size_t size = 0;
    const std::unique_ptr<void, decltype(&SDL_free)> data(SDL_LoadFile(path.c_str(), &size),
                                                          SDL_free);
    return data ? std::string(static_cast<const char*>(data.get()), size) : std::string();
}

} // namespace nui
