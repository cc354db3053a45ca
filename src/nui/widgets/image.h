#pragma once

#include "nui/draw/texture.h"
#include "nui/widgets/widget.h"

namespace nui {

enum class ImageScaleMode : std::uint32_t { None = 0, Stretch = 1, KeepAspectRatio = 2 };

/// The picture that a layout file names below the key. For one that cannot be loaded null, and
/// whoever listens to the file's faults hears of it; an empty name is none.
const TextureRef* readPicture(NuiReader& reader, const std::string& name, const char* key);

/// Shows a picture. The texture belongs to the engine's cache.
class Image : public Cloneable<Image, Widget> {
public:
    void drawContent() override;
    void measure() override;
    bool read(NuiReader& reader) override;
    [[nodiscard]] const char* className() const override { return "Image"; }

    const TextureRef* texture = nullptr;
    ImageScaleMode scaleMode = ImageScaleMode::KeepAspectRatio;
};

} // namespace nui
