#pragma once

#include "nui/widgets/container.h"

#include <memory>
#include <string>

namespace nui {

/// Shows how far a container is scrolled, and scrolls it. The container is found by its name from
/// the bar outwards, or is given. The bar draws nothing while all of it can be seen. It holds a
/// channel, its own one unless the layout file gives one.
class SolidScrollbar : public Cloneable<SolidScrollbar, Container> {
public:
    SolidScrollbar();
    /// A copy looks for a container of its own.
    SolidScrollbar(const SolidScrollbar& other);
    SolidScrollbar& operator=(const SolidScrollbar& other);
    ~SolidScrollbar() override = default;

    void drawChildren(Point position) override;
    bool read(NuiReader& reader) override;
    [[nodiscard]] const char* className() const override { return "SolidScrollbar"; }

    void setContainer(const std::shared_ptr<Container>& container);
    /// Null while there is none.
    [[nodiscard]] Container* container();
    [[nodiscard]] Axis axis() const { return axis_; }
    void setAxis(Axis axis);

    /// How much of the contents can be seen, 1 being all.
    [[nodiscard]] float visibleShare();
    /// How far it is scrolled, from 0 to 1.
    [[nodiscard]] float scrolledShare();
    /// For the user: the container's listeners hear of it.
    void scrollTo(float share);
    /// By so many times what can be seen; positive is towards the end.
    void scrollByPages(float pages);

private:
    static void onWheel(WidgetEvent& event);
    void ensureChannel();
    void scrollToPixels(float scroll);

    std::string containerName_;
    std::weak_ptr<Widget> container_;
    Axis axis_ = Axis::Y;
};

/// The channel of a scroll bar and the thumb in it: the thumb is dragged, and a press beside it
/// scrolls by what can be seen. Works the SolidScrollbar around it.
class SolidScrollbarChannel : public Cloneable<SolidScrollbarChannel, Widget> {
public:
    SolidScrollbarChannel();

    void drawContent() override;
    [[nodiscard]] const char* className() const override { return "SolidScrollbarChannel"; }

private:
    struct Thumb {
        float start = 0; ///< from the channel's own
        float length = 0;
        float room = 0; ///< that it moves in
    };

    static void onPointer(WidgetEvent& event);
    [[nodiscard]] SolidScrollbar* bar() const;
    [[nodiscard]] Thumb thumbOf(SolidScrollbar& bar) const;
    void press(TouchEvent& event, SolidScrollbar& bar);

    float grab_ = -1; ///< where the thumb is held, from its start; negative while it is not
};

} // namespace nui
