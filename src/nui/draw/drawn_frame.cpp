#include "nui/draw/drawn_frame.h"

#include "nui/draw/gl_context.h"
#include "nui/draw/texture.h"

#include <utility>

namespace nui {

namespace {

/// Milliseconds. Not every window system tells when it has lost a window's pixels.
constexpr std::uint64_t LongestUntouched = 1000;

struct Gathering {
    DrawnFrame* frame = nullptr;
    Rect scissor{0, 0, NoClip, 0}; ///< that of the next primitive
};

Gathering& gathering()
{
    static Gathering instance;
    return instance;
}

} // namespace

void DrawnFrame::Content::clear()
{
    calls.clear();
    vertices.clear();
    texCoords.clear();
}

void DrawnFrame::Content::add(const DrawCall& call, const Vertex* first,
                              const TexturePoint* firstCoords)
{
    vertices.insert(vertices.end(), first, first + call.vertexCount);
    if (call.texture != 0)
        texCoords.insert(texCoords.end(), firstCoords, firstCoords + call.vertexCount);
    calls.push_back(call);
}

void DrawnFrame::Content::draw() const
{
    const Vertex* vertex = vertices.data();
    const TexturePoint* texCoord = texCoords.data();
    const Rect* scissor = nullptr;
    for (const DrawCall& call : calls) {
        if (scissor == nullptr || *scissor != call.scissor)
            sendScissor(call.scissor);
        scissor = &call.scissor;
        sendToGl(call, vertex, texCoord);
        vertex += call.vertexCount;
        if (call.texture != 0)
            texCoord += call.vertexCount;
    }
    sendScissor(gathering().scissor);
}

DrawnFrame::~DrawnFrame()
{
    if (gathering().frame == this)
        gathering().frame = nullptr;
}

void DrawnFrame::begin(int width, int height)
{
    drawGathered();
    next_.clear();
    next_.width = width;
    next_.height = height;
    gathering().frame = this;
}

bool DrawnFrame::isSameAsShown(std::uint64_t now)
{
    next_.textures = textureGeneration();
    return isShown_ && now - shownAt_ < LongestUntouched && next_ == shown_;
}

bool DrawnFrame::show(std::uint64_t now)
{
    const bool wasGathered = gathering().frame == this;
    if (wasGathered && isSameAsShown(now)) {
        gathering().frame = nullptr;
        deleteFreedTextures();
        return false;
    }
    drawOnly();
    swap();
    std::swap(next_, shown_);
    isShown_ = wasGathered;
    shownAt_ = now;
    return true;
}

void DrawnFrame::drawOnly()
{
    if (gathering().frame == this)
        drawGathered();
    deleteFreedTextures();
}

void drawOrGather(const DrawCall& call, const Vertex* vertices, const TexturePoint* texCoords)
{
    if (gathering().frame == nullptr) {
        sendToGl(call, vertices, texCoords);
        return;
    }
    DrawCall gathered = call;
    gathered.scissor = gathering().scissor;
    gathering().frame->next_.add(gathered, vertices, texCoords);
}

void setScissor(const Rect& area)
{
    gathering().scissor = area;
    if (!isGathering())
        sendScissor(area);
}

void drawGathered()
{
    if (const DrawnFrame* const frame = std::exchange(gathering().frame, nullptr))
        frame->next_.draw();
}

bool isGathering()
{
    return gathering().frame != nullptr;
}

} // namespace nui
