#pragma once

#include "nui/draw/draw_call.h"

#include <cstddef>
#include <cstdint>
#include <vector>

// Frames that cost nothing while nothing changes. A frame's primitives are gathered first and then
// go to GL, unless the window shows just these already: with a renderer in software, a window that
// waits for its user would else keep a processor busy.

namespace nui {

/// What one window shows, and what its next frame is to show. For the loop's thread; the window
/// that it is for must be current in GL from begin() to the end of the frame.
class DrawnFrame {
public:
    DrawnFrame() = default;
    DrawnFrame(const DrawnFrame&) = delete;
    DrawnFrame& operator=(const DrawnFrame&) = delete;
    ~DrawnFrame();

    /// Gathers the primitives of a window of this size from here on. Of a frame that is being
    /// gathered already, the primitives go to GL first, and its further ones go there at once.
    void begin(int width, int height);
    /// Ends the frame: draws it and swaps buffers, or leaves both if the window shows it already.
    /// `now` is in milliseconds. Answers whether it has drawn.
    bool show(std::uint64_t now);
    /// Ends the frame: draws it into the back buffer.
    void drawOnly();
    /// What the window shows may be lost: the next frame is drawn in any case.
    void invalidate() { isShown_ = false; }

private:
    friend void drawOrGather(const DrawCall& call, const Vertex* vertices,
                             const TexturePoint* texCoords);
    friend void drawGathered();

    struct Content {
        int width = 0;
        int height = 0;
        std::uint64_t textures = 0; ///< the generation, as GL uses their names again
        std::vector<DrawCall> calls;
        std::vector<Vertex> vertices;
        std::vector<TexturePoint> texCoords;

        void clear();
        void add(const DrawCall& call, const Vertex* first, const TexturePoint* firstCoords);
        void draw() const;
        bool operator==(const Content&) const = default;
    };

    bool isSameAsShown(std::uint64_t now);

    Content next_;
    Content shown_;
    bool isShown_ = false;
    std::uint64_t shownAt_ = 0;
};

/// Puts the primitive into the frame that is being gathered; without one it is drawn. The scissor
/// of `call` is filled in.
void drawOrGather(const DrawCall& call, const Vertex* vertices, const TexturePoint* texCoords);
/// For what is drawn from here on, gathered or not.
void setScissor(const Rect& area);
/// Before code that draws by itself: what has been gathered goes to GL, and what follows in this
/// frame goes there at once. The frame is shown, whatever the one before was.
void drawGathered();
[[nodiscard]] bool isGathering();

} // namespace nui
