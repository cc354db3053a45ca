#pragma once

#include "nui/layout/known_sizes.h"
#include "nui/widgets/form.h"
#include "nui/widgets/reloadable_text.h"
#include "nui/widgets/widget.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace nui {

enum class LayoutKind : std::uint32_t {
    Horizontal = 0,
    Vertical = 1,
    HorizontalGrid = 2, ///< lines of children from left to right
    VerticalGrid = 3    ///< columns of children from top to bottom
};

/// A widget with children, which it sizes, places, scrolls and routes the pointer to. Changing
/// the children marks nothing dirty; whoever changes them asks the screen for a layout.
class Container : public Cloneable<Container, Widget>, public ReloadableText {
public:
    Container() = default;
    /// Clones the children.
    Container(const Container& other);
    Container& operator=(const Container& other);
    ~Container() override;

    void drawChildren(Point position) override;
    void measure() override;
    bool layout(std::uint32_t flags) override;
    void place() override;
    bool read(NuiReader& reader) override;
    bool readOverrides(NuiReader& reader, bool skipSelf) override;
    void applyTemplate(const Widget* look) override;
    [[nodiscard]] Widget* findByName(const std::string& wanted) override;
    void copyTo(Widget& target) const override;
    void broadcast(WidgetEvent& event) override;
    [[nodiscard]] const char* className() const override { return "Container"; }
    void reloadText() override;

    /// layout() and then place().
    virtual void relayout(std::uint32_t flags);
    virtual void placeChildren();
    /// Delivers a pointer event to the deepest hit widget below and then outwards. `deepest` and
    /// `captured` are what is known so far and are updated; answers the depth of the deepest
    /// widget, this container being at `depth`.
    virtual std::uint32_t hitTest(TouchEvent& event, WidgetPtr& deepest, WidgetPtr& captured,
                                  std::uint32_t depth);

    [[nodiscard]] const std::vector<WidgetPtr>& children() const { return children_; }
    /// A child that is here already moves.
    void add(WidgetPtr child);
    void insert(std::size_t index, WidgetPtr child);
    bool remove(const Widget* child);
    void removeAll();
    bool replace(const Widget* child, WidgetPtr replacement);
    [[nodiscard]] WidgetPtr find(const Widget* child) const;
    /// Among the direct children.
    [[nodiscard]] WidgetPtr findChild(const std::string& wanted) const;
    /// Until the function answers false.
    void forEach(const std::function<bool(Widget& child)>& function) const;

    /// Values are 0 or negative, and are clamped to what the last placing allows. With `notify`,
    /// a ScrollChanged event tells of a change. Answers whether something changed.
    bool setScrollX(float value, bool notify);
    bool setScrollY(float value, bool notify);
    /// Scrolls just so far that the child can be seen.
    void makeVisible(const Widget& child);
    /// The same for a span along one axis, in the coordinates of the children.
    void makeVisible(Axis axis, float start, float length);
    void setScrollable(bool horizontally, bool vertically);
    /// Scrolls on the drag family of events in place of press, move and release.
    void setDragEvents(bool use);
    /// Asks place() of the parent for another round; for place() of a child.
    void invalidateLayout() { layoutValid_ = false; }
    void buildForm();

    [[nodiscard]] Axis mainAxis() const
    {
        return layoutKind == LayoutKind::Horizontal || layoutKind == LayoutKind::HorizontalGrid
                   ? Axis::X
                   : Axis::Y;
    }
    [[nodiscard]] bool isGrid() const
    {
        return layoutKind == LayoutKind::HorizontalGrid || layoutKind == LayoutKind::VerticalGrid;
    }

    Edges padding;
    LayoutKind layoutKind = LayoutKind::Vertical;
    float scrollX = 0;
    float scrollY = 0;
    float minScrollX = 0;
    float minScrollY = 0;
    float maxScrollX = 0;
    float maxScrollY = 0;
    bool scrollableX = false;
    bool scrollableY = false;
    bool childrenTouch = true; ///< false: the container itself is hit in place of its children
    std::unique_ptr<Form> form;

protected:
    [[nodiscard]] bool isLayoutValid() const { return layoutValid_; }
    void setLayoutValid(bool valid) { layoutValid_ = valid; }
    /// Resolves the container's own size, as the flags ask.
    void resolveOwn(std::uint32_t flags);

private:
    /// What one pass over the children gathers along the main axis, in pixels and weights.
    struct Room {
        float remaining = 0; ///< for the weighted children
        float weightTotal = 0;
        bool isEstimated = false;
        float estimatedRest = 0; ///< stays 0 where there is no estimate, which sizes nothing
        float estimatedWeights = 1;
    };

    void adopt(const Container& other);
    void readChildren(NuiReader& reader);
    // layout/size_pass.cpp
    [[nodiscard]] bool learnSize(std::uint32_t flags);
    bool sizeChildren(std::uint32_t flags);
    void sizeChild(Widget& child, std::uint32_t flags, Room& room);
    void sizeAcross(Widget& child);
    void estimate(Room& room);
    // layout/measure.cpp
    bool measureChild(Widget& child, Axis axis, bool sum);
    // scrolling.cpp
    static void onScrollEvent(WidgetEvent& event);
    void listenForScrolling(bool listen);
    void startDragScroll(TouchEvent& event);
    void dragScroll(const TouchEvent& event);
    void wheelScroll(const TouchEvent& event);
    bool setScroll(float& scroll, float value, float least, float most, bool notify);
    [[nodiscard]] float scrollToShow(Axis axis, float start, float length) const;

    std::vector<WidgetPtr> children_;
    bool dragging_ = false;
    float dragOriginX_ = 0;
    float dragOriginY_ = 0;
    bool dragEvents_ = false;
    bool layoutValid_ = false;
    KnownSizes knownSizes_;
};

} // namespace nui
