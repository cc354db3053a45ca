#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

// The tables that all drawing calls share; for the drawing layer alone.

namespace nui {

/// Of a primitive, at most.
constexpr std::size_t MaxVertices = 65535;

struct Vertex {
    float x;
    float y;
    float z;

    bool operator==(const Vertex&) const = default;
};

struct VertexTables {
    std::array<Vertex, MaxVertices> scratch;            ///< filled anew by each primitive
    std::array<std::uint16_t, MaxVertices> indices;     ///< each equal to its place
    std::array<std::uint32_t, MaxVertices> wideIndices; ///< the same, for 3D
};

/// Filled by prepareDrawing.
[[nodiscard]] VertexTables& vertexTables();

} // namespace nui
