#include "nui/reader/resource_file.h"

#include <SDL_rwops.h>

#include <array>
#include <cstddef>
#include <memory>

namespace nui {

std::string contentOf(const std::string& path)
{
    const std::unique_ptr<SDL_RWops, decltype(&SDL_RWclose)> file(
        SDL_RWFromFile(path.c_str(), "rb"), SDL_RWclose);
    std::string content;
    // Piece by piece: what is no file may claim any size.
    std::array<char, 4096> piece{};
    while (file) {
        const std::size_t count = SDL_RWread(file.get(), piece.data(), 1, piece.size());
        if (count == 0)
            break;
        content.append(piece.data(), count);
    }
    return content;
}

} // namespace nui
