#include "nui/reader/nui_reader.h"
#include "nui/widgets/widget.h"

#include <array>

// The keys that every widget has. Their order matters where one overwrites another.

namespace nui {

namespace {

// By the value of the visibility word; the two without a name draw nothing and cannot be asked
// for.
constexpr std::array<const char*, 9> VisibilityNames = {
    "Collapsed",          "Hidden",  "Overlapping", "Visible", "", "",
    "ClippedOverlapping", "Clipped", nullptr};

constexpr std::array<const char*, 4> PlacementNames = {"Start", "Center", "End", nullptr};

void readPlacement(NuiReader& reader, Placement& out, const char* key)
{
    auto index = static_cast<std::uint32_t>(out);
    reader.readEnum(index, key, PlacementNames.data());
    out = static_cast<Placement>(index);
}

/// A text without a unit that is known leaves its number behind, and the unit as it was.
void readExtent(NuiReader& reader, float& value, SizeMode& mode, const char* key)
{
    Size size{value, mode};
    reader.readSize(size, key);
    value = size.value;
    mode = size.mode;
}

void readBorderColors(NuiReader& reader, Widget& widget)
{
    reader.readColor(widget.borderColor, "borderColor", "borderAlpha");
    // Also without the key: an override of anything takes back the edges of `border`.
    BorderColors edges{widget.borderColor, widget.borderColor, widget.borderColor,
                       widget.borderColor};
    reader.readBorder(edges, "border");
    widget.topColor = edges.top;
    widget.rightColor = edges.right;
    widget.bottomColor = edges.bottom;
    widget.leftColor = edges.left;
}

void readStateTemplates(NuiReader& reader, Widget& widget)
{
    if (!widget.stateTemplates)
        widget.stateTemplates = std::make_unique<StateTemplates>();
    StateTemplates& templates = *widget.stateTemplates;
    reader.readTemplateRef(templates.pressed, "pressedTemplate");
    reader.readTemplateRef(templates.over, "overTemplate");
    reader.readTemplateRef(templates.disabled, "disabledTemplate");
    if (!templates.pressed && !templates.over && !templates.disabled)
        widget.stateTemplates.reset();
}

} // namespace

bool Widget::read(NuiReader& reader)
{
    reader.readString(id, "id", false);
    reader.readString(name, "name", false);
    // A widget has a parent here only while overrides are read.
    if (!reader.readString(toolTip, "toolTip", true) && toolTip.empty() && parent != nullptr)
        toolTip = parent->toolTip;
    reader.readEdgesHere(margin);
    readExtent(reader, widthValue, widthMode, "width");
    readExtent(reader, heightValue, heightMode, "height");
    reader.readSizeValue(maxWidth, "maxWidth");
    reader.readSizeValue(maxHeight, "maxHeight");
    readPlacement(reader, gravity, "gravity");
    readPlacement(reader, alignment, "alignment");
    reader.readEnum(visibility, "visibility", VisibilityNames.data());
    reader.readColor(color, "color", "alpha");
    readBorderColors(reader, *this);
    reader.readColor(backgroundColor, "backgroundColor", "backgroundAlpha");
    readStateTemplates(reader, *this);
    reader.readBool(touchEnabled, "touchEnabled");
    return true;
}

} // namespace nui
