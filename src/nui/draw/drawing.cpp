#include "nui/draw/drawing.h"

#include "nui/draw/drawn_frame.h"
#include "nui/draw/gl_context.h"
#include "nui/draw/texture.h"
#include "nui/draw/vertex_tables.h"
#include "nui/engine/window_handle.h"

#include <GL/glew.h>
#include <SDL2/SDL_rect.h>
#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace nui {

namespace {

/// Of all 2D vertices: close to the far end, so that what is drawn in space stands in front.
constexpr float Depth = -0.9F;

constexpr float ArcStep = 0.1F; ///< radians

struct DrawingState {
    Color color = OpaqueBlack;
    float lineWidth = 0.8F;
    Rect clip{0, 0, NoClip, 0};
    bool blended = false;
};

DrawingState& state()
{
    static DrawingState instance;
    return instance;
}

/// One primitive on its way to GL: vertices go into the scratch array, and draw() shows them.
class Primitive {
public:
    Primitive() : vertices_(vertexTables().scratch.data()) {}

    void add(float x, float y) { vertices_[count_++] = {x, y, Depth}; }
    void add(Point point) { add(point.x, point.y); }
    void addCorners(float x, float y, float width, float height)
    {
        add(x, y);
        add(x, y + height);
        add(x + width, y + height);
        add(x + width, y);
    }
    void addArc(float cx, float cy, float rx, float ry, float start, float end)
    {
        const auto [smaller, larger] = std::minmax(start, end);
        const auto addAt = [&](float angle) {
            add(cx + std::sin(angle) * rx, cy - std::cos(angle) * ry);
        };
        // More than the array takes are turns on top of each other.
        for (float angle = smaller; angle < larger && count_ + 1 < MaxVertices; angle += ArcStep)
            addAt(angle);
        addAt(larger);
    }
    void draw(GLenum mode) const { send({.mode = mode}, nullptr); }
    /// For lines along the grid of pixels.
    void drawCrisp() const
    {
        // Of lines between the exact centres of pixels, renderers leave out the last pixel or the
        // first one, and one and the same does either, by where it draws to.
        constexpr float OffCentre = 1.0F / 16;
        std::for_each_n(vertices_, count_, [](Vertex& vertex) {
            vertex.x -= OffCentre;
            vertex.y -= OffCentre;
        });
        send({.mode = GL_LINE_STRIP, .crisp = true}, nullptr);
    }
    void drawTextured(const TextureRef& texture, const TexturePoint* texCoords) const
    {
        send({.mode = GL_TRIANGLE_FAN, .texture = texture.glName}, texCoords);
    }

private:
    void send(DrawCall call, const TexturePoint* texCoords) const
    {
        call.color = state().color;
        call.lineWidth = state().lineWidth;
        call.blended = state().blended;
        call.vertexCount = count_;
        drawOrGather(call, vertices_, texCoords);
    }

    Vertex* vertices_;
    std::size_t count_ = 0;
};

} // namespace

VertexTables& vertexTables()
{
    static VertexTables tables;
    return tables;
}

void prepareDrawing()
{
    VertexTables& tables = vertexTables();
    std::iota(tables.indices.begin(), tables.indices.end(), std::uint16_t{0});
    std::iota(tables.wideIndices.begin(), tables.wideIndices.end(), 0U);
    state().blended = false;
}

void setColor(Color color)
{
    state().color = color;
}

void setColor(Color color, float alphaFactor)
{
    state().color = fadedBy(color, alphaFactor);
}

void setColorRGB(unsigned char red, unsigned char green, unsigned char blue)
{
    state().color = AlphaMask | Color{blue} << 16U | Color{green} << 8U | Color{red};
}

Color getColor()
{
    return state().color;
}

void setLineWidth(float width)
{
    state().lineWidth = width;
}

void line(float x0, float y0, float x1, float y1)
{
    Primitive primitive;
    primitive.add(x0, y0);
    primitive.add(x1, y1);
    if (x0 == x1 || y0 == y1)
        primitive.drawCrisp();
    else
        primitive.draw(GL_LINE_STRIP);
}

void rectOutline(float x, float y, float width, float height)
{
    Primitive primitive;
    primitive.addCorners(x, y, width, height);
    primitive.add(x, y);
    primitive.drawCrisp();
}

void fillRect(float x, float y, float width, float height)
{
    Primitive primitive;
    primitive.addCorners(x, y, width, height);
    primitive.draw(GL_TRIANGLE_FAN);
}

void polyline(const Point* points, std::size_t count, bool closed)
{
    Primitive primitive;
    std::for_each_n(points, count, [&](Point point) { primitive.add(point); });
    if (closed)
        primitive.add(points[0]);
    primitive.draw(GL_LINE_STRIP);
}

void fillPolygon(const Point* points, std::size_t count)
{
    Primitive primitive;
    std::for_each_n(points, count, [&](Point point) { primitive.add(point); });
    primitive.draw(GL_TRIANGLE_FAN);
}

void arc(float cx, float cy, float rx, float ry, float start, float end)
{
    Primitive primitive;
    primitive.addArc(cx, cy, rx, ry, start, end);
    primitive.draw(GL_LINE_STRIP);
}

void pie(float cx, float cy, float rx, float ry, float start, float end)
{
    Primitive primitive;
    primitive.add(cx, cy);
    primitive.addArc(cx, cy, rx, ry, start, end);
    primitive.draw(GL_TRIANGLE_FAN);
}

void texturedQuad(const TextureRef* texture, float x, float y, float width, float height,
                  const TexturePoint* texCoords)
{
    static const std::array<TexturePoint, 4> zeroCoords = {};
    if (texture == nullptr || texture->glName == 0)
        return;
    blend();
    Primitive primitive;
    primitive.addCorners(x, y, width, height);
    primitive.drawTextured(*texture, texCoords != nullptr ? texCoords : zeroCoords.data());
}

void setClip(Rect clip)
{
    state().clip = clip;
    setScissor(clip);
}

void intersectClip(Rect clip)
{
    const Rect& inForce = state().clip;
    if (inForce.width == NoClip) {
        setClip(clip);
        return;
    }
    const SDL_Rect first{inForce.x, inForce.y, inForce.width, inForce.height};
    const SDL_Rect second{clip.x, clip.y, clip.width, clip.height};
    SDL_Rect common{};
    // Of disjoint rectangles SDL gives negative sizes, which GL refuses.
    SDL_IntersectRect(&first, &second, &common);
    setClip({common.x, common.y, std::max(common.w, 0), std::max(common.h, 0)});
}

Rect getClip()
{
    return state().clip;
}

Rect visibleArea()
{
    const WindowHandle* const window = currentWindow();
    if (state().clip.width != NoClip || window == nullptr)
        return state().clip;
    return {0, 0, window->drawableWidth, window->drawableHeight};
}

void blend()
{
    state().blended = true;
}

void restoreScissor()
{
    if (state().clip.width != NoClip)
        setClip(state().clip);
    glFlush();
}

} // namespace nui
