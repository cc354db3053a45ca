#include "nui/widgets/control_looks.h"

#include "nui/draw/drawing.h"
#include "nui/engine/engine.h"
#include "nui/widgets/screen.h"

#include <array>

namespace nui {

void setControlColors(Widget& widget)
{
    widget.color = control_color::Ink;
    widget.backgroundColor = control_color::Paper;
    for (Color* const edge : {&widget.borderColor, &widget.topColor, &widget.rightColor,
                              &widget.bottomColor, &widget.leftColor})
        *edge = control_color::Line;
}

void fadeIfDisabled(Widget& widget)
{
    if (!widget.isChainEnabled() && !(widget.stateTemplates && widget.stateTemplates->disabled))
        widget.drawAlpha *= DisabledAlpha;
}

bool hasFocus(Widget& widget)
{
    const Screen* const screen = widget.screen();
    return screen != nullptr && screen->focusedWidget.get() == &widget &&
           engine().keyboard.focusScreen.get() == screen;
}

void drawFrame(const Widget& widget)
{
    setColor(control_color::Accent, widget.drawAlpha);
    // One pixel inside, as the border is drawn last.
    rectOutline(widget.x + 1.5F, widget.y + 1.5F, widget.width - 3, widget.height - 3);
}

void drawFocusFrame(Widget& widget)
{
    if (hasFocus(widget))
        drawFrame(widget);
}

void drawArrow(Point center, float halfSize, Axis axis, bool towardsStart)
{
    const float tip = towardsStart ? -halfSize / 2 : halfSize / 2;
    const auto at = [&](float along, float acrossIt) {
        return axis == Axis::Y ? Point{center.x + acrossIt, center.y + along}
                               : Point{center.x + along, center.y + acrossIt};
    };
    const std::array corners = {at(tip, 0), at(-tip, halfSize), at(-tip, -halfSize)};
    fillPolygon(corners.data(), corners.size());
}

Point positionOnWindow(const Widget& widget)
{
    Point position{widget.localX + widget.offsetX, widget.localY + widget.offsetY};
    for (const Widget* ancestor = widget.parent; ancestor != nullptr; ancestor = ancestor->parent) {
        position.x += ancestor->offsetX;
        position.y += ancestor->offsetY;
        if (const auto* const container = dynamic_cast<const Container*>(ancestor)) {
            position.x += container->scrollX;
            position.y += container->scrollY;
        }
    }
    return position;
}

} // namespace nui
