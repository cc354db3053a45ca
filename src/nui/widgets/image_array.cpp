#include "nui/widgets/image_array.h"

#include "nui/reader/nui_reader.h"

#include <string>

namespace nui {

bool ImageArray::read(NuiReader& reader)
{
    Image::read(reader);
    std::vector<std::string> files;
    if (reader.readStringList(files, "files")) {
        textures_.clear();
        for (const std::string& file : files)
            textures_.push_back(readPicture(reader, file, "files"));
    }
    std::uint32_t index = 0;
    if (!reader.readUnsigned(index, "index"))
        index = static_cast<std::uint32_t>(shown_);
    else if (index >= count())
        reader.reportFault(LayoutFault::Kind::UnknownValue, std::to_string(index), "index");
    show(index);
    return true;
}

void ImageArray::show(std::size_t index)
{
    if (index >= count())
        return;
    shown_ = index;
    texture = textures_[index];
}

} // namespace nui
