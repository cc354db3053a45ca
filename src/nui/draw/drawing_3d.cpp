#include "nui/draw/drawing_3d.h"

#include "nui/draw/drawing.h"
#include "nui/draw/drawn_frame.h"
#include "nui/draw/vertex_tables.h"

#include <GL/glew.h>
#include <cmath>

namespace nui {

namespace {

struct DepthRange {
    float nearPlane = 1;
    float farPlane = 500;
};

DepthRange& depthRange()
{
    static DepthRange instance;
    return instance;
}

void enable(GLenum capability, bool on)
{
    if (on)
        glEnable(capability);
    else
        glDisable(capability);
}

GLenum lightName(std::size_t index)
{
    return GL_LIGHT0 + static_cast<GLenum>(index);
}

} // namespace

void setDepthRange(float nearPlane, float farPlane)
{
    depthRange() = {nearPlane, farPlane};
}

void setPerspective(float fieldOfView, float aspect)
{
    const float top = depthRange().nearPlane * std::tan(fieldOfView / 2);
    setFrustum(-top * aspect, top * aspect, -top, top);
}

void setFrustum(float left, float right, float bottom, float top)
{
    drawGathered();
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glFrustum(left, right, bottom, top, depthRange().nearPlane, depthRange().farPlane);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
}

void enableLighting(bool on)
{
    drawGathered();
    enable(GL_LIGHTING, on);
}

void enableLight(std::size_t index, bool on)
{
    drawGathered();
    enable(lightName(index), on);
}

void setLight(std::size_t index, const Light& light)
{
    drawGathered();
    const GLenum name = lightName(index);
    glLightfv(name, GL_POSITION, light.position.data());
    glLightfv(name, GL_AMBIENT, light.ambient.data());
    glLightfv(name, GL_DIFFUSE, light.diffuse.data());
    glLightfv(name, GL_SPECULAR, light.specular.data());
}

void setMaterial(const Material& material)
{
    drawGathered();
    glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT, material.ambient.data());
    glMaterialfv(GL_FRONT_AND_BACK, GL_DIFFUSE, material.diffuse.data());
    glMaterialfv(GL_FRONT_AND_BACK, GL_SPECULAR, material.specular.data());
    glMaterialfv(GL_FRONT_AND_BACK, GL_EMISSION, material.emission.data());
    glMaterialf(GL_FRONT_AND_BACK, GL_SHININESS, material.shininess);
}

void setNormals(const float* normals)
{
    drawGathered();
    if (normals == nullptr) {
        glDisableClientState(GL_NORMAL_ARRAY);
        return;
    }
    glEnableClientState(GL_NORMAL_ARRAY);
    glNormalPointer(GL_FLOAT, 0, normals);
}

void drawTriangles(const float* vertices, std::size_t count)
{
    drawTriangles(vertices, vertexTables().wideIndices.data(), count);
}

void drawTriangles(const float* vertices, const std::uint32_t* indices, std::size_t count)
{
    drawGathered();
    const Color color = getColor();
    glDisableClientState(GL_COLOR_ARRAY);
    glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    glColor4ub(static_cast<GLubyte>(color), static_cast<GLubyte>(color >> 8U),
               static_cast<GLubyte>(color >> 16U), static_cast<GLubyte>(color >> 24U));
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(3, GL_FLOAT, 0, vertices);
    glDrawElements(GL_TRIANGLES, static_cast<GLsizei>(count), GL_UNSIGNED_INT, indices);
}

} // namespace nui
