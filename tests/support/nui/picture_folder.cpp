#include "support/nui/picture_folder.h"

#include "misc/file_system.h"
#include "misc/host_file_system.h"
#include "nui/draw/color.h"
#include "nui/draw/surface.h"

#include <SDL2/SDL_image.h>
#include <SDL2/SDL_surface.h>
#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <vector>

namespace nui::test {

std::string PictureFolder::path() const
{
    return nrd::misc::to_host(folder_.path()).string();
}

void PictureFolder::write(const std::string& name, const std::string& rows) const
{
    const std::map<char, Color> colors = {{'r', 0xFF0000FF},  {'g', 0xFF00FF00},  {'b', 0xFFFF0000},
                                          {'w', OpaqueWhite}, {'k', OpaqueBlack}, {'.', 0},
                                          {'h', 0x80FFFFFF}};
    std::vector<Color> pixels;
    for (const char letter : rows) {
        if (letter != '\n')
            pixels.push_back(colors.at(letter));
    }
    const auto height = static_cast<int>(std::ranges::count(rows, '\n'));
    const int width = static_cast<int>(pixels.size()) / height;
    const SurfacePtr picture(SDL_CreateRGBSurfaceWithFormatFrom(
        pixels.data(), width, height, 32, width * 4, SDL_PIXELFORMAT_ABGR8888));
    const nrd::misc::path file = folder_ / name;
    nrd::misc::create_directories(file.parent_path());
    const std::string host = nrd::misc::to_host(file).string();
    EXPECT_EQ(IMG_SavePNG(picture.get(), host.c_str()), 0) << IMG_GetError();
}

} // namespace nui::test
