#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>

namespace nui {

/// An image in the shared GL context, in pixels. Cached ones live until the program ends.
struct TextureRef {
    std::uint32_t glName = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
};

/// FNV-1a over the bytes.
struct ResourceNameHash {
    std::size_t operator()(const std::string& name) const;
};

/// Images by the name that asked for them, loaded once. A failed load is not remembered. Needs a
/// current GL context; for the loop's thread.
class TextureCache {
public:
    TextureCache();

    /// `name` counts from the resource directory; ".png" is assumed where no ending is given.
    /// Null for an empty name and for what cannot be loaded.
    const TextureRef* load(const std::string& name, const std::string& resourceDirectory);

    [[nodiscard]] std::size_t size() const { return textures_.size(); }

private:
    std::unordered_map<std::string, std::unique_ptr<TextureRef>, ResourceNameHash> textures_;
};

/// The file that a resource name stands for: joined, and with ".png" where it has no ending.
[[nodiscard]] std::string imagePath(const std::string& name, const std::string& resourceDirectory);

/// Uploads 32-bit RGBA pixels, rows without padding, from the top; the caller owns the texture.
[[nodiscard]] TextureRef makeTexture(const void* pixels, std::int32_t width, std::int32_t height);
/// A name for a texture whose pixels the caller uploads, bound; freed as the others are.
[[nodiscard]] std::uint32_t bindNewTexture();
/// Takes effect later if no context is current or a frame is being gathered.
void freeTexture(TextureRef& texture);
/// Of textures let go earlier, the names are GL's again, if a context is current.
void deleteFreedTextures();
/// Another one after each texture that was made, as GL gives names of freed ones again.
[[nodiscard]] std::uint64_t textureGeneration();
/// The shared context has gone, and what was in it.
void forgetFreedTextures();
/// Lets texture coordinates beyond 1 begin anew along its width.
void repeatAcross(const TextureRef& texture);

} // namespace nui
