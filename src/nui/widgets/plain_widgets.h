#pragma once

#include "nui/widgets/container.h"
#include "nui/widgets/form.h"
#include "nui/widgets/image.h"
#include "nui/widgets/text_label.h"
#include "nui/widgets/widget.h"

// Classes of layout files that have no behaviour beyond their base's.

namespace nui {

class Breadcrumbs : public Cloneable<Breadcrumbs, Container> {
public:
    [[nodiscard]] const char* className() const override { return "Breadcrumbs"; }
};

class IpAddressField : public Cloneable<IpAddressField, Container> {
public:
    [[nodiscard]] const char* className() const override { return "IpAddressField"; }
};

class NumberField : public Cloneable<NumberField, Container> {
public:
    [[nodiscard]] const char* className() const override { return "NumberField"; }
};

} // namespace nui
