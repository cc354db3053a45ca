#pragma once

#include "nui/draw/color.h"
#include "nui/draw/drawing.h"
#include "nui/draw/geometry.h"
#include "nui/draw/vertex_tables.h"

#include <cstddef>
#include <cstdint>

// Primitives as GL gets them; for the drawing layer, and for what measures it.

namespace nui {

/// One primitive, with all that its pixels depend on.
struct DrawCall {
    std::uint32_t mode = 0; ///< GL_LINE_STRIP or GL_TRIANGLE_FAN
    Color color = OpaqueBlack;
    float lineWidth = 1;
    std::uint32_t texture = 0; ///< GL's name; 0 is none
    bool blended = false;
    /// For lines along the grid of pixels: with multisampling their ends would be smeared, or
    /// corners left open, by each driver in its own way.
    bool crisp = false;
    Rect scissor{0, 0, NoClip, 0}; ///< as setScissor takes it
    std::size_t vertexCount = 0;

    bool operator==(const DrawCall&) const = default;
};

/// With the scissor test as it is. `texCoords` has a point for each vertex, or is null without a
/// texture. Neither is kept.
void sendToGl(const DrawCall& call, const Vertex* vertices, const TexturePoint* texCoords);
/// Window coordinates of the current window, y down; a width of NoClip switches the test off.
void sendScissor(const Rect& area);
/// How many primitives GL got since the program began.
[[nodiscard]] std::uint64_t drawnPrimitives();

} // namespace nui
