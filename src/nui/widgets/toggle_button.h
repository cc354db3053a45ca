#pragma once

#include "nui/widgets/container.h"

namespace nui {

/// Holds a clone of one of two templates, and changes it for the other when it is clicked; then
/// it raises an activation of its own.
class ToggleButton : public Cloneable<ToggleButton, Container> {
public:
    ToggleButton();
    /// A copy holds the clone of what its source shows.
    ToggleButton(const ToggleButton& other);
    ToggleButton& operator=(const ToggleButton& other);
    ~ToggleButton() override = default;

    bool read(NuiReader& reader) override;
    void setEnabled(bool enabled) override;
    [[nodiscard]] const char* className() const override { return "ToggleButton"; }

    /// Raises nothing.
    virtual void setSelected(bool selected);
    [[nodiscard]] bool isSelected() const { return selected_; }

private:
    static void onActivate(WidgetEvent& event);
    void adoptState(const ToggleButton& other);
    void showState();

    WidgetPtr itemTemplate_;
    WidgetPtr selectedTemplate_;
    WidgetPtr item_; ///< the child that is shown
    bool selected_ = false;
};

} // namespace nui
