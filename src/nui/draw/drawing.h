#pragma once

#include "nui/draw/color.h"
#include "nui/draw/geometry.h"

#include <cstddef>

// Drawing in window pixels, y down, through fixed-function OpenGL. Current colour, line width and
// clip are state of the layer. Everything needs a current GL context and the loop's thread, and
// trusts its input. Within a frame of the engine's, primitives reach GL when it ends (DrawnFrame).

namespace nui {

struct TextureRef;

struct TexturePoint {
    float u = 0;
    float v = 0;

    bool operator==(const TexturePoint&) const = default;
};

/// A clip of this width cuts nothing.
constexpr int NoClip = -32768;

void setColor(Color color);
/// The alpha byte times the factor, truncated.
void setColor(Color color, float alphaFactor);
void setColorRGB(unsigned char red, unsigned char green, unsigned char blue);
[[nodiscard]] Color getColor();
void setLineWidth(float width);

/// Across or down through the centres of pixels it is crisp, and leaves its last pixel out.
void line(float x0, float y0, float x1, float y1);
void rectOutline(float x, float y, float width, float height);
void fillRect(float x, float y, float width, float height);
/// At most 65535 points, the closing one included.
void polyline(const Point* points, std::size_t count, bool closed);
/// Convex; at most 65535 points.
void fillPolygon(const Point* points, std::size_t count);
/// Angles in radians, clockwise from the top.
void arc(float cx, float cy, float rx, float ry, float start, float end);
void pie(float cx, float cy, float rx, float ry, float start, float end);
/// `texCoords` are four points for the corners left top, left bottom, right bottom, right top;
/// null takes the layer's own, which are all zero. Switches blending on and leaves it on. Draws
/// nothing without a texture.
void texturedQuad(const TextureRef* texture, float x, float y, float width, float height,
                  const TexturePoint* texCoords);

/// Window coordinates, y down. It is turned to GL's with the height of the current window, so it
/// must be set again after a change of window.
void setClip(Rect clip);
void intersectClip(Rect clip);
[[nodiscard]] Rect getClip();
/// Where something can be seen of what is drawn: the clip, or else all of the current window.
[[nodiscard]] Rect visibleArea();
/// Solid fills blend with what is below from here on, as those behind a textured quad do.
void blend();
/// After code that draws by itself, which begins with drawGathered().
void restoreScissor();

/// Fills the tables; once, before anything is drawn.
void prepareDrawing();

} // namespace nui
