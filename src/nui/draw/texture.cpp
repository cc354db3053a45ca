#include "nui/draw/texture.h"

#include "nui/draw/drawn_frame.h"
#include "nui/draw/surface.h"
#include "nui/reader/resource_path.h"

#include <GL/glew.h>
#include <SDL2/SDL_surface.h>
#include <SDL2/SDL_video.h>
#include <utility>
#include <vector>

namespace nui {

namespace {

/// Whether the last name of the path has an ending. A dot in a folder is none.
bool hasEnding(const std::string& path)
{
    const std::size_t last = path.find_last_of("\\/.");
    return last != std::string::npos && path[last] == '.';
}

/// Rows without padding, as pixels of four bytes have none. Null if the file cannot be read.
SurfacePtr loadRgba(const std::string& path)
{
    const SurfacePtr file = loadSurface(path);
    return SurfacePtr(file ? SDL_ConvertSurfaceFormat(file.get(), SDL_PIXELFORMAT_ABGR8888, 0)
                           : nullptr);
}

/// Names of textures that were let go while no context was current, as between two windows, or
/// while the frame that shows them was not drawn yet.
std::vector<GLuint>& unused()
{
    static auto* const names = new std::vector<GLuint>;
    return *names;
}

std::uint64_t& generation()
{
    static std::uint64_t number = 0;
    return number;
}

} // namespace

std::size_t ResourceNameHash::operator()(const std::string& name) const
{
    std::uint32_t hash = 0x811C9DC5;
    for (const char byte : name)
        hash = (hash ^ static_cast<unsigned char>(byte)) * 16777619U;
    return hash;
}

TextureCache::TextureCache() : textures_(8)
{
    textures_.max_load_factor(1.0F);
}

const TextureRef* TextureCache::load(const std::string& name, const std::string& resourceDirectory)
{
    if (name.empty())
        return nullptr;
    if (const auto found = textures_.find(name); found != textures_.end())
        return found->second.get();
    const SurfacePtr picture = loadRgba(imagePath(name, resourceDirectory));
    if (!picture)
        return nullptr;
    auto texture =
        std::make_unique<TextureRef>(makeTexture(picture->pixels, picture->w, picture->h));
    return textures_.emplace(name, std::move(texture)).first->second.get();
}

std::string imagePath(const std::string& name, const std::string& resourceDirectory)
{
    const std::string path = joinPath(resourceDirectory, name);
    return hasEnding(path) ? path : path + ".png";
}

TextureRef makeTexture(const void* pixels, std::int32_t width, std::int32_t height)
{
    const TextureRef texture{bindNewTexture(), width, height};
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, width, height, 0, GL_RGBA, GL_UNSIGNED_BYTE, pixels);
    // Without mipmaps, GL's own choice would show nothing.
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    return texture;
}

std::uint32_t bindNewTexture()
{
    deleteFreedTextures();
    ++generation();
    GLuint name = 0;
    glGenTextures(1, &name);
    glBindTexture(GL_TEXTURE_2D, name);
    return name;
}

void repeatAcross(const TextureRef& texture)
{
    glBindTexture(GL_TEXTURE_2D, texture.glName);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_REPEAT);
}

void freeTexture(TextureRef& texture)
{
    unused().push_back(texture.glName);
    texture = {};
    deleteFreedTextures();
}

void deleteFreedTextures()
{
    if (isGathering() || SDL_GL_GetCurrentContext() == nullptr)
        return;
    glDeleteTextures(static_cast<GLsizei>(unused().size()), unused().data());
    unused().clear();
}

std::uint64_t textureGeneration()
{
    return generation();
}

void forgetFreedTextures()
{
    unused().clear();
}

} // namespace nui
