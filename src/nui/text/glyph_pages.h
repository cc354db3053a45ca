#pragma once

#include <FTGL/ftgl.h>

#include <string>
#include <vector>

namespace nui {

/// FTGL's texture font with textures of its own: the library's hold all glyphs that a file has,
/// which for a font of the East is more than a 32-bit process can give.
class GlyphPages : public FTTextureFont {
public:
    /// `file` is a font file's content, and outlives the object.
    explicit GlyphPages(const std::string& file);
    ~GlyphPages() override;

private:
    FTGlyph* MakeGlyph(FT_GlyphSlot slot) override;
    void makeRoom(int width, int height);

    std::vector<unsigned int> pages_; ///< GL names
    int pageSide_ = 0;                ///< of the last page, in pixels
    int x_ = 0;                       ///< of free room in it
    int y_ = 0;
    int rowHeight_ = 0;
};

} // namespace nui
