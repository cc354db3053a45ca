#pragma once

#include "nui/widgets/container.h"
#include "nui/widgets/form.h"
#include "nui/widgets/image.h"
#include "nui/widgets/text_label.h"
#include "nui/widgets/widget.h"

// Classes of layout files that have no behaviour beyond their base's.

namespace nui {

/// Floats over its siblings, which take no notice of it.
class Overlay : public Cloneable<Overlay, Container> {
public:
    [[nodiscard]] bool isOverlay() const override { return true; }
    [[nodiscard]] const char* className() const override { return "Overlay"; }

    std::weak_ptr<Widget> anchor; ///< what its drawing is cut to, if anything
    std::uint32_t group = 0;      ///< those of one group go with the popup among them; 0 is none
};

class TextField : public Cloneable<TextField, TextLabel>, public FormItem {
public:
    [[nodiscard]] const char* className() const override { return "TextField"; }
};

class NumberTextField : public Cloneable<NumberTextField, TextField> {
public:
    [[nodiscard]] const char* className() const override { return "NumberTextField"; }
};

class ToggleButton : public Cloneable<ToggleButton, Container> {
public:
    [[nodiscard]] const char* className() const override { return "ToggleButton"; }
};

class MultiStateButton : public Cloneable<MultiStateButton, Container> {
public:
    [[nodiscard]] const char* className() const override { return "MultiStateButton"; }
};

class OkCancelButton : public Cloneable<OkCancelButton, Container> {
public:
    [[nodiscard]] const char* className() const override { return "OkCancelButton"; }
};

class Breadcrumbs : public Cloneable<Breadcrumbs, Container> {
public:
    [[nodiscard]] const char* className() const override { return "Breadcrumbs"; }
};

class SelectionList : public Cloneable<SelectionList, Container> {
public:
    [[nodiscard]] const char* className() const override { return "SelectionList"; }
};

class ListBox : public Cloneable<ListBox, Container> {
public:
    [[nodiscard]] const char* className() const override { return "ListBox"; }
};

class DropDown : public Cloneable<DropDown, Container> {
public:
    [[nodiscard]] const char* className() const override { return "DropDown"; }
};

class IpAddressField : public Cloneable<IpAddressField, Container> {
public:
    [[nodiscard]] const char* className() const override { return "IpAddressField"; }
};

class NumberField : public Cloneable<NumberField, Container> {
public:
    [[nodiscard]] const char* className() const override { return "NumberField"; }
};

class SolidScrollbar : public Cloneable<SolidScrollbar, Container> {
public:
    [[nodiscard]] const char* className() const override { return "SolidScrollbar"; }
};

class SolidScrollbarChannel : public Cloneable<SolidScrollbarChannel, Widget> {
public:
    [[nodiscard]] const char* className() const override { return "SolidScrollbarChannel"; }
};

class Slider : public Cloneable<Slider, Widget> {
public:
    [[nodiscard]] const char* className() const override { return "Slider"; }
};

class ImageArray : public Cloneable<ImageArray, Widget> {
public:
    [[nodiscard]] const char* className() const override { return "ImageArray"; }
};

class MoreButton : public Cloneable<MoreButton, Image> {
public:
    [[nodiscard]] const char* className() const override { return "MoreButton"; }
};

class ImageButton : public Cloneable<ImageButton, Image>, public FormItem {
public:
    [[nodiscard]] const char* className() const override { return "ImageButton"; }
};

class SelectableImage : public Cloneable<SelectableImage, Image> {
public:
    [[nodiscard]] const char* className() const override { return "SelectableImage"; }
};

} // namespace nui
