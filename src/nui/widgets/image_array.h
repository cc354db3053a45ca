#pragma once

#include "nui/widgets/image.h"

#include <cstddef>
#include <vector>

namespace nui {

/// Shows one of several pictures, which belong to the engine's cache. Without any it shows what
/// an Image shows.
class ImageArray : public Cloneable<ImageArray, Image> {
public:
    bool read(NuiReader& reader) override;
    [[nodiscard]] const char* className() const override { return "ImageArray"; }

    /// How many there are. One whose file cannot be loaded counts, and shows nothing.
    [[nodiscard]] std::size_t count() const { return textures_.size(); }
    [[nodiscard]] std::size_t shown() const { return shown_; }
    /// Shows the picture of that index; one that is not there leaves all as it is.
    void show(std::size_t index);

private:
    std::vector<const TextureRef*> textures_;
    std::size_t shown_ = 0;
};

} // namespace nui
