#include "nui/text/ftgl_face.h"

#include <GL/glew.h>

namespace nui {

namespace {

/// Of all that is drawn in 2D.
constexpr float Depth = -0.9F;

} // namespace

FtglFace::FtglFace(const std::string& file, std::int32_t size, unsigned int resolution)
    : file_(file), size_(size), resolution_(resolution),
      metrics_(file, static_cast<unsigned int>(size), resolution)
{
}

void FtglFace::drawRun(const TextLines& lines, std::int32_t first, std::int32_t end, Point origin,
                       Color color)
{
    if (!glyphs_) {
        glyphs_ = std::make_unique<FTTextureFont>(
            reinterpret_cast<const unsigned char*>(file_.data()), file_.size());
        glyphs_->GlyphLoadFlags(FtglMetrics::LoadFlags);
        glyphs_->FaceSize(static_cast<unsigned int>(size_), resolution_);
    }
    const auto start = static_cast<std::size_t>(first);
    glColor4ub(static_cast<GLubyte>(color), static_cast<GLubyte>(color >> 8U),
               static_cast<GLubyte>(color >> 16U), static_cast<GLubyte>(color >> 24U));
    glPushMatrix();
    glTranslatef(origin.x, origin.y, Depth);
    glRotatef(180, 1, 0, 0); // the library's y goes up
    glyphs_->Render(lines.text.data() + lines.starts[start], end - first,
                    FTPoint(lines.characters[start].x, 0));
    glPopMatrix();
}

} // namespace nui
