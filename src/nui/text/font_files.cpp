#include "nui/text/font_files.h"

#include "nui/text/font_file.h"

#include <ft2build.h>
#include FT_FREETYPE_H

#include <type_traits>

namespace nui {

namespace {

struct CloseLibrary {
    void operator()(FT_Library library) const { FT_Done_FreeType(library); }
};
struct CloseFace {
    void operator()(FT_Face face) const { FT_Done_Face(face); }
};
using Library = std::unique_ptr<std::remove_pointer_t<FT_Library>, CloseLibrary>;
using Face = std::unique_ptr<std::remove_pointer_t<FT_Face>, CloseFace>;

FT_Library library()
{
    static const Library opened = [] {
        FT_Library made = nullptr;
        FT_Init_FreeType(&made);
        return Library(made);
    }();
    return opened.get();
}

Face faceOf(const std::string& content)
{
    FT_Face face = nullptr;
    const auto* const bytes = reinterpret_cast<const FT_Byte*>(content.data());
    if (content.empty() ||
        FT_New_Memory_Face(library(), bytes, static_cast<FT_Long>(content.size()), 0, &face) != 0)
        return {};
    return Face(face);
}

} // namespace

struct FontFiles::File {
    explicit File(std::string name) : path(std::move(name)) {}

    void read()
    {
        if (isRead)
            return;
        isRead = true;
        content = fontFileContent(path);
        face = faceOf(content);
    }

    std::string path;
    std::string content;
    Face face; ///< tells which characters there are
    bool isRead = false;
};

FontFiles::FontFiles(const std::vector<std::string>& paths)
{
    for (const std::string& path : paths)
        files_.push_back(std::make_unique<File>(path));
}

FontFiles::~FontFiles() = default;

std::size_t FontFiles::indexFor(char32_t character)
{
    for (std::size_t index = 0; index < files_.size(); ++index) {
        File& file = *files_[index];
        file.read();
        if (file.face && FT_Get_Char_Index(file.face.get(), character) != 0)
            return index;
    }
    return 0;
}

float FontFiles::lineHeight()
{
    files_.front()->read();
    const Face& face = files_.front()->face;
    if (!face || face->units_per_EM == 0)
        return 0;
    return static_cast<float>(face->height) / static_cast<float>(face->units_per_EM);
}

const std::string& FontFiles::contentOf(std::size_t index)
{
    files_[index]->read();
    return files_[index]->content;
}

} // namespace nui
