#include "nui/draw/draw_call.h"

#include "nui/draw/gl_context.h"
#include "nui/engine/window_handle.h"

#include <GL/glew.h>

namespace nui {

namespace {

std::uint64_t& primitives()
{
    static std::uint64_t number = 0;
    return number;
}

void drawVertices(const DrawCall& call, const Vertex* vertices, const TexturePoint* texCoords)
{
    glDisableClientState(GL_COLOR_ARRAY);
    glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    glColor4ub(static_cast<GLubyte>(call.color), static_cast<GLubyte>(call.color >> 8U),
               static_cast<GLubyte>(call.color >> 16U), static_cast<GLubyte>(call.color >> 24U));
    glLineWidth(call.lineWidth);
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(3, GL_FLOAT, 0, vertices);
    if (texCoords != nullptr) {
        glEnableClientState(GL_TEXTURE_COORD_ARRAY);
        glTexCoordPointer(2, GL_FLOAT, 0, texCoords);
    }
    glDrawElements(call.mode, static_cast<GLsizei>(call.vertexCount), GL_UNSIGNED_SHORT,
                   vertexTables().indices.data());
}

void drawTextured(const DrawCall& call, const Vertex* vertices, const TexturePoint* texCoords)
{
    GLint bound = 0;
    glGetIntegerv(GL_TEXTURE_BINDING_2D, &bound);
    const auto before = static_cast<GLuint>(bound);
    if (before != call.texture)
        glBindTexture(GL_TEXTURE_2D, call.texture);
    glEnable(GL_TEXTURE_2D);
    drawVertices(call, vertices, texCoords);
    if (before != call.texture)
        glBindTexture(GL_TEXTURE_2D, before);
    glDisable(GL_TEXTURE_2D);
}

} // namespace

void sendToGl(const DrawCall& call, const Vertex* vertices, const TexturePoint* texCoords)
{
    ++primitives();
    if (call.blended) {
        glEnable(GL_BLEND);
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    }
    if (call.crisp)
        glDisable(GL_MULTISAMPLE);
    if (call.texture != 0)
        drawTextured(call, vertices, texCoords);
    else
        drawVertices(call, vertices, nullptr);
    if (call.crisp)
        glEnable(GL_MULTISAMPLE);
}

void sendScissor(const Rect& area)
{
    if (area.width == NoClip) {
        glDisable(GL_SCISSOR_TEST);
        return;
    }
    const WindowHandle* const window = currentWindow();
    const int windowHeight = window != nullptr ? window->drawableHeight : 0;
    glEnable(GL_SCISSOR_TEST);
    glScissor(area.x, windowHeight - area.y - area.height, area.width, area.height);
}

std::uint64_t drawnPrimitives()
{
    return primitives();
}

} // namespace nui
