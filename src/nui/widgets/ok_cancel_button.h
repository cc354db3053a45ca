#pragma once

#include "nui/widgets/container.h"

namespace nui {

class TextButton;

/// Two text buttons side by side, with something between them. They are children that the
/// layout file gives; any may be missing.
class OkCancelButton : public Cloneable<OkCancelButton, Container> {
public:
    OkCancelButton() = default;
    OkCancelButton(const OkCancelButton& other);
    OkCancelButton& operator=(const OkCancelButton& other);
    ~OkCancelButton() override = default;

    bool read(NuiReader& reader) override;
    [[nodiscard]] const char* className() const override { return "OkCancelButton"; }

    /// Null for a child that is not there, or is no button.
    [[nodiscard]] TextButton* okButton() const { return okButton_; }
    [[nodiscard]] TextButton* cancelButton() const { return cancelButton_; }
    [[nodiscard]] Widget* separator() const { return separator_; }

private:
    void findParts();

    TextButton* okButton_ = nullptr;
    TextButton* cancelButton_ = nullptr;
    Widget* separator_ = nullptr;
};

} // namespace nui
