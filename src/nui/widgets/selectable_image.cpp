#include "nui/widgets/selectable_image.h"

#include "nui/reader/nui_reader.h"

#include <utility>

namespace nui {

bool SelectableImage::read(NuiReader& reader)
{
    Image::read(reader);
    reader.readTemplateRef(selectedTemplate_, "imageSelectedTemplate");
    return true;
}

void SelectableImage::drawContent()
{
    const auto* const look = dynamic_cast<const Image*>(selectedTemplate_.get());
    if (!selected_ || look == nullptr) {
        Image::drawContent();
        return;
    }
    const TextureRef* const own = std::exchange(texture, look->texture);
    Image::drawContent();
    texture = own;
}

} // namespace nui
