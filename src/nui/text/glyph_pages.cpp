#include "nui/text/glyph_pages.h"

#include <GL/glew.h>

#include <algorithm>
#include <memory>

namespace nui {

namespace {

constexpr int PageSide = 512;
constexpr int Gap = 1; ///< keeps neighbours out of each other's edges
/// What drawing a glyph may add to its outline.
constexpr int Margin = 2;

int wholePixels(FT_Pos length)
{
    constexpr FT_Pos UnitsOfPixel = 64;
    return static_cast<int>((length + UnitsOfPixel - 1) / UnitsOfPixel) + Margin;
}

GLuint makePage(int side)
{
    GLuint page = 0;
    glGenTextures(1, &page);
    glBindTexture(GL_TEXTURE_2D, page);
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

} // namespace

GlyphPages::GlyphPages(const std::string& file)
    : FTTextureFont(reinterpret_cast<const unsigned char*>(file.data()), file.size())
{
}

GlyphPages::~GlyphPages()
{
    glDeleteTextures(static_cast<GLsizei>(pages_.size()), pages_.data());
}

/// In rows, from the top; a new page where the last one is full.
void GlyphPages::makeRoom(int width, int height)
{
    if (x_ + width > pageSide_) {
        x_ = 0;
        y_ += rowHeight_ + Gap;
        rowHeight_ = 0;
    }
    if (width <= pageSide_ && y_ + height <= pageSide_)
        return;
    pageSide_ = std::max({PageSide, width, height});
    pages_.push_back(makePage(pageSide_));
    x_ = 0;
    y_ = 0;
    rowHeight_ = 0;
}

FTGlyph* GlyphPages::MakeGlyph(FT_GlyphSlot slot)
{
    const int width = wholePixels(slot->metrics.width);
    const int height = wholePixels(slot->metrics.height);
    makeRoom(width, height);
    auto glyph = std::make_unique<FTTextureGlyph>(slot, static_cast<int>(pages_.back()), x_, y_,
                                                  pageSide_, pageSide_);
    x_ += width + Gap;
    rowHeight_ = std::max(rowHeight_, height);
    return glyph.release(); // the library's from now on
}

} // namespace nui
