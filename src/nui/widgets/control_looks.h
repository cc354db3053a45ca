#pragma once

#include "nui/draw/color.h"
#include "nui/draw/geometry.h"
#include "nui/layout/edges.h"

// What the controls with values have in common to look at, where a layout file says nothing.

namespace nui {

class Widget;

namespace control_color {
constexpr Color Ink = 0xFF3A2C22;
constexpr Color Paper = 0xFFFFFFFF;
constexpr Color Line = 0xFFB4AAA0;
constexpr Color Accent = 0xFFC87828;
constexpr Color Channel = 0xFFE4DED8;
constexpr Color Selection = 0xFFF6DFC6;
constexpr Color Hover = 0xFFF8F1EA;
} // namespace control_color

/// What is left of the opacity of a control that is disabled.
constexpr float DisabledAlpha = 0.4F;

/// Ink on paper, with a thin line around: the colours of a control until its keys are read.
void setControlColors(Widget& widget);

/// Lets what is drawn after it be pale while the widget is disabled and has no look of its own
/// for that. For drawContent().
void fadeIfDisabled(Widget& widget);

/// Whether the widget has the keyboard of its window.
[[nodiscard]] bool hasFocus(Widget& widget);

/// A frame along the inside of the rectangle, which shows where the keyboard is.
void drawFrame(const Widget& widget);
/// The frame, if the widget has the keyboard.
void drawFocusFrame(Widget& widget);

/// A filled triangle around a centre that points up or left, or else down or right.
void drawArrow(Point center, float halfSize, Axis axis, bool towardsStart);

/// Where the widget will be drawn on its window, from its local position and from how much its
/// ancestors are scrolled and displaced.
[[nodiscard]] Point positionOnWindow(const Widget& widget);

} // namespace nui
