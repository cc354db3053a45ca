#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

// Drawing in space, as a thin layer over fixed-function OpenGL: GL's own coordinates and
// conventions hold. Everything needs a current GL context and the loop's thread. What a frame has
// gathered before goes to GL first. A frame that goes on in 2D afterwards sets its projection and
// state again.

namespace nui {

/// Red, green, blue, alpha.
using LightColor = std::array<float, 4>;

struct Light {
    /// Homogeneous: with a last component of 0 it is the direction that the light comes from.
    std::array<float, 4> position = {0, 0, 1, 0};
    LightColor ambient = {0, 0, 0, 1};
    LightColor diffuse = {1, 1, 1, 1};
    LightColor specular = {1, 1, 1, 1};
};

struct Material {
    LightColor ambient = {0.2F, 0.2F, 0.2F, 1};
    LightColor diffuse = {0.8F, 0.8F, 0.8F, 1};
    LightColor specular = {0, 0, 0, 1};
    LightColor emission = {0, 0, 0, 1};
    float shininess = 0; ///< 0 to 128
};

/// What the projections cut off; 1 to 500 at first.
void setDepthRange(float nearPlane, float farPlane);
/// The vertical field of view in radians, and width over height.
void setPerspective(float fieldOfView, float aspect);
/// The sides of the near plane.
void setFrustum(float left, float right, float bottom, float top);

void enableLighting(bool enable);
/// `index` is 0 to 7.
void enableLight(std::size_t index, bool enable);
/// The position goes through the model view matrix of this moment.
void setLight(std::size_t index, const Light& light);
void setMaterial(const Material& material);

/// Three numbers for each vertex, not owned and read while drawing; null takes them away.
void setNormals(const float* normals);
/// Triangles of three vertices each, with three coordinates a vertex, in the current colour. At
/// most 65535 vertices.
void drawTriangles(const float* vertices, std::size_t count);
void drawTriangles(const float* vertices, const std::uint32_t* indices, std::size_t count);

} // namespace nui
