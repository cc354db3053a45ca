#pragma once

#include "nui/draw/geometry.h"
#include "nui/widgets/container.h"

#include <array>

namespace nui {

/// Gives the children of one container their local positions, and the container its scroll
/// limits. The sizes are final but for the rounding, and but for the cross size of a grid that is
/// sized by content, which only the lines tell.
class PlacingPass {
public:
    explicit PlacingPass(Container& container);

    void run();

private:
    /// A pen position for each gravity, and again for the overlapping children.
    static constexpr std::size_t StartCursor = 0;
    static constexpr std::size_t CenterCursor = 1;
    static constexpr std::size_t EndCursor = 2;
    static constexpr std::size_t OverlappingCursors = 3;

    [[nodiscard]] bool placeChild(Widget& child);
    void placeOverlapping(Widget& child) const;
    [[nodiscard]] bool placeInFlow(Widget& child, Point& cursor);
    [[nodiscard]] bool lineIsFull(float pen);
    void placeAcross(Widget& child) const;
    static void roundDown(Widget& child);
    /// Moves the children of the other gravities; true if that has set the scroll limits.
    [[nodiscard]] bool moveByGravity();
    [[nodiscard]] bool overflowsAlone(std::size_t cursor) const;
    void setScrollLimits();
    void clampScrolls() const;

    [[nodiscard]] float& along(Point& point) const { return main_ == Axis::X ? point.x : point.y; }
    [[nodiscard]] float mainOf(const Point& point) const
    {
        return main_ == Axis::X ? point.x : point.y;
    }
    [[nodiscard]] float margins(const Widget& child, Axis axis) const
    {
        return child.margin.both(axis, container_.extent(axis));
    }

    Container& container_;
    Axis main_;
    Axis cross_;
    float mainSize_;
    float crossSize_;
    float padStart_; ///< along the main axis
    float padEnd_;
    std::array<Point, 6> cursors_;
    float lineOffset_;
    float lineExtent_ = 0;
    float itemsInLine_ = 0;
    float itemsPerLine_ = 0; ///< 0: lines break where the container ends
    bool noStart_ = true;
};

} // namespace nui
