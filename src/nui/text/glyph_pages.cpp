#include "nui/text/glyph_pages.h"

#include "nui/draw/drawing.h"

#include <GL/glew.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

namespace nui {

namespace {

constexpr int PageSide = 512;
constexpr int Gap = 1; ///< keeps neighbours out of each other's edges

TextureRef makePage(int side)
{
    const TextureRef page{bindNewTexture(), side, side};
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    const auto area = static_cast<std::size_t>(side) * static_cast<std::size_t>(side);
    const std::vector<unsigned char> empty(area);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_ALPHA, side, side, 0, GL_ALPHA, GL_UNSIGNED_BYTE,
                 empty.data());
    return page;
}

void upload(const FT_Bitmap& bitmap, const TextureRef& page, int x, int y)
{
    glBindTexture(GL_TEXTURE_2D, page.glName);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, bitmap.pitch);
    glTexSubImage2D(GL_TEXTURE_2D, 0, x, y, static_cast<GLsizei>(bitmap.width),
                    static_cast<GLsizei>(bitmap.rows), GL_ALPHA, GL_UNSIGNED_BYTE, bitmap.buffer);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
}

/// The quad that shows a glyph's picture, if it has one.
class PageGlyph : public FTGlyph {
public:
    explicit PageGlyph(FT_GlyphSlot slot)
        : FTGlyph(slot), left_(static_cast<float>(slot->bitmap_left)),
          top_(static_cast<float>(-slot->bitmap_top)),
          width_(static_cast<float>(slot->bitmap.width)),
          height_(static_cast<float>(slot->bitmap.rows)), advance_(Advance(), 0)
    {
    }

    /// The picture lies there; the page is the font's.
    void place(const TextureRef& page, int x, int y)
    {
        page_ = page;
        const auto side = static_cast<float>(page.width);
        const float u = static_cast<float>(x) / side;
        const float v = static_cast<float>(y) / side;
        const float right = u + width_ / side;
        const float bottom = v + height_ / side;
        corners_ = {{{u, v}, {u, bottom}, {right, bottom}, {right, v}}};
    }

    const FTPoint& Render(const FTPoint& pen, int /*renderMode*/) override
    {
        // Between pixels it would be blurred.
        texturedQuad(&page_, std::floor(pen.Xf() + left_), std::floor(pen.Yf() + top_), width_,
                     height_, corners_.data());
        return advance_;
    }

private:
    TextureRef page_;
    float left_; ///< from the pen, y down
    float top_;
    float width_;
    float height_;
    std::array<TexturePoint, 4> corners_;
    FTPoint advance_;
};

} // namespace

GlyphPages::GlyphPages(const std::string& file)
    : FTTextureFont(reinterpret_cast<const unsigned char*>(file.data()), file.size())
{
}

GlyphPages::~GlyphPages()
{
    std::ranges::for_each(pages_, freeTexture);
}

/// In rows, from the top; a new page where the last one is full.
void GlyphPages::makeRoom(int width, int height)
{
    const int side = pages_.empty() ? 0 : pages_.back().width;
    if (x_ + width > side) {
        x_ = 0;
        y_ += rowHeight_ + Gap;
        rowHeight_ = 0;
    }
    if (width <= side && y_ + height <= side)
        return;
    pages_.push_back(makePage(std::max({PageSide, width, height})));
    x_ = 0;
    y_ = 0;
    rowHeight_ = 0;
}

FTGlyph* GlyphPages::MakeGlyph(FT_GlyphSlot slot)
{
    // What cannot be drawn keeps its room in the line.
    if (FT_Render_Glyph(slot, FT_RENDER_MODE_NORMAL) != 0)
        slot->bitmap = {};
    auto glyph = std::make_unique<PageGlyph>(slot);
    const auto width = static_cast<int>(slot->bitmap.width);
    const auto height = static_cast<int>(slot->bitmap.rows);
    if (width > 0 && height > 0) {
        makeRoom(width, height);
        upload(slot->bitmap, pages_.back(), x_, y_);
        glyph->place(pages_.back(), x_, y_);
        x_ += width + Gap;
        rowHeight_ = std::max(rowHeight_, height);
    }
    return glyph.release(); // the library's from now on
}

} // namespace nui
