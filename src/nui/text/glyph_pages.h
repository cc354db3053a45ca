#pragma once

#include "nui/draw/texture.h"

#include <FTGL/ftgl.h>

#include <string>
#include <vector>

namespace nui {

/// FTGL's texture font with textures of its own: the library's hold all glyphs that a file has,
/// which for a font of the East is more than a 32-bit process can give. Glyphs are drawn as
/// textured quads in the current colour; the pen is in window pixels, y down.
class GlyphPages : public FTTextureFont {
public:
    /// `file` is a font file's content, and outlives the object.
    explicit GlyphPages(const std::string& file);
    ~GlyphPages() override;

private:
    FTGlyph* MakeGlyph(FT_GlyphSlot slot) override;
    void makeRoom(int width, int height);

    std::vector<TextureRef> pages_;
    int x_ = 0; ///< of free room in the last page, in pixels
    int y_ = 0;
    int rowHeight_ = 0;
};

} // namespace nui
