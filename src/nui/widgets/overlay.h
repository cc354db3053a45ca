#pragma once

#include "nui/widgets/container.h"

#include <cstdint>
#include <memory>

namespace nui {

/// Floats over its siblings, which take no notice of it.
class Overlay : public Cloneable<Overlay, Container> {
public:
    [[nodiscard]] bool isOverlay() const override { return true; }
    [[nodiscard]] const char* className() const override { return "Overlay"; }

    std::weak_ptr<Widget> anchor; ///< what its drawing is cut to, if anything
    std::uint32_t group = 0;      ///< those of one group go with the popup among them; 0 is none
};

} // namespace nui
