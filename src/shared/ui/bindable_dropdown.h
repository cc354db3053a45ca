#pragma once

#include "nui/widgets/drop_down.h"
#include "shared/ui/bindable_widget.h"

#include <string>

namespace nrd::shared::ui {

/// Bound to the text of the selected item. A value that no item has leaves the selection.
class bindable_dropdown : public bindable_widget<bindable_dropdown, nui::DropDown, std::string> {
public:
    static constexpr std::array PushesOn = {nui::touch::Release, nui::keyboard::Down};

    void setWidgetValue(const std::string& value) override { selectText(value); }
    [[nodiscard]] std::string getWidgetValue() override { return selectedText(); }
    [[nodiscard]] const char* className() const override { return "bindable_dropdown"; }

protected:
    /// Of the keys only those push that go up and down the items.
    void handlePush(nui::WidgetEvent& event) override;
};

} // namespace nrd::shared::ui
