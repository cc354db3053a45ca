#pragma once

#include "nui/widgets/container.h"

namespace nui {

/// Holds a clone of each of two templates, of which one is its child, and changes it for the other
/// when it is clicked; then it raises an activation of its own. What is done to a clone stays with
/// it while the other one is shown.
class ToggleButton : public Cloneable<ToggleButton, Container> {
public:
    ToggleButton();
    /// Clones both.
    ToggleButton(const ToggleButton& other);
    ToggleButton& operator=(const ToggleButton& other);
    ~ToggleButton() override = default;

    bool read(NuiReader& reader) override;
    bool readOverrides(NuiReader& reader, bool skipSelf) override;
    void broadcast(WidgetEvent& event) override;
    void reloadText() override;
    void setEnabled(bool enabled) override;
    [[nodiscard]] const char* className() const override { return "ToggleButton"; }

    /// Raises nothing.
    virtual void setSelected(bool selected);
    [[nodiscard]] bool isSelected() const { return selected_; }
    /// The clone for that state, whether it is shown or not; null without a template for it.
    [[nodiscard]] const WidgetPtr& item(bool selected) const
    {
        return selected ? selectedItem_ : item_;
    }

private:
    static void onActivate(WidgetEvent& event);
    void adoptState(const ToggleButton& other);
    void make(WidgetPtr& item, const WidgetPtr& source);
    void showState();
    [[nodiscard]] WidgetPtr hidden() const;

    WidgetPtr itemTemplate_;
    WidgetPtr selectedItemTemplate_;
    WidgetPtr item_;
    WidgetPtr selectedItem_;
    bool selected_ = false;
};

} // namespace nui
