#pragma once

#include "nui/widgets/container.h"

#include <cstddef>
#include <string>

namespace nui {

class ImageArray;

/// Steps through the pictures of an ImageArray among its children, one further with each click.
/// The pointer hits the button, not its children.
class MultiStateButton : public Cloneable<MultiStateButton, Container> {
public:
    MultiStateButton();

    void drawContent() override;
    bool read(NuiReader& reader) override;
    [[nodiscard]] const char* className() const override { return "MultiStateButton"; }

    /// The index of the picture that is shown; 0 without pictures.
    [[nodiscard]] std::size_t state() const;
    /// Raises nothing. A state that has no picture leaves all as it is.
    void setState(std::size_t state);

private:
    static void onRelease(WidgetEvent& event);
    [[nodiscard]] ImageArray* images() const;
    void reportMissingImages(NuiReader& reader) const;
    void step();

    std::string imageName_;
};

} // namespace nui
