#include "nui/widgets/image.h"

#include "nui/draw/drawing.h"
#include "nui/engine/engine.h"
#include "nui/reader/nui_reader.h"

#include <array>
#include <string>

namespace nui {

namespace {

constexpr std::array<const char*, 4> ScaleModeNames = {"None", "Stretch", "KeepAspectRatio",
                                                       nullptr};

/// The whole texture.
constexpr std::array<TexturePoint, 4> WholeTexture = {{{0, 0}, {0, 1}, {1, 1}, {1, 0}}};

struct Box {
    float x;
    float y;
    float width;
    float height;
};

/// The largest box of that ratio of width to height in the middle of `room`.
Box fitted(const Box& room, float ratio)
{
    if (ratio > room.width / room.height) {
        const float height = room.width / ratio;
        return {room.x, room.y + (room.height - height) / 2, room.width, height};
    }
    const float width = ratio * room.height;
    return {room.x + (room.width - width) / 2, room.y, width, room.height};
}

} // namespace

void Image::drawContent()
{
    setColor(color, drawAlpha);
    if (texture == nullptr)
        return;
    const auto pictureWidth = static_cast<float>(texture->width);
    const auto pictureHeight = static_cast<float>(texture->height);
    Box box{x, y, width, height};
    if (scaleMode == ImageScaleMode::None)
        box = {x, y, pictureWidth, pictureHeight};
    else if (scaleMode == ImageScaleMode::KeepAspectRatio)
        box = fitted(box, pictureWidth / pictureHeight);
    texturedQuad(texture, box.x, box.y, box.width, box.height, WholeTexture.data());
}

void Image::measure()
{
    if (scaleMode != ImageScaleMode::KeepAspectRatio || texture == nullptr)
        return;
    const auto pictureWidth = static_cast<float>(texture->width);
    const auto pictureHeight = static_cast<float>(texture->height);
    if (widthMode == Content && heightMode == Content) {
        width = pictureWidth;
        height = pictureHeight;
    } else if (widthMode == Content) {
        resolveExtent(Axis::Y, height);
        width = pictureWidth * height / pictureHeight;
    } else if (heightMode == Content) {
        resolveExtent(Axis::X, width);
        height = pictureHeight * width / pictureWidth;
    }
}

const TextureRef* readPicture(NuiReader& reader, const std::string& name, const char* key)
{
    const TextureRef* const texture = engine().loadTexture(name);
    if (texture == nullptr && !name.empty())
        reader.reportFault(LayoutFault::Kind::MissingPicture, name, key);
    return texture;
}

bool Image::read(NuiReader& reader)
{
    const bool answer = Widget::read(reader);
    std::string file;
    if (reader.readString(file, "file", true))
        texture = readPicture(reader, file, "file");
    auto mode = static_cast<std::uint32_t>(scaleMode);
    reader.readEnum(mode, "scaleMode", ScaleModeNames.data());
    scaleMode = static_cast<ImageScaleMode>(mode);
    return answer;
}

} // namespace nui
