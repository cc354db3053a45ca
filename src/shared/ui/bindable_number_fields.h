#pragma once

#include "nui/widgets/number_field.h"
#include "shared/ui/bindable_widget.h"
#include "shared/ui/unit.h"

namespace nrd::shared::ui {

class bindable_number_field
    : public bindable_widget<bindable_number_field, nui::NumberField, float> {
public:
    /// A value beyond the field's limits goes back to the model as the field has it.
    void setWidgetValue(const float& value) override;
    [[nodiscard]] float getWidgetValue() override { return value(); }
    [[nodiscard]] const char* className() const override { return "bindable_number_field"; }
};

/// Shows a length in the unit that stands behind the field's number: "mm", "cm", "dm", "m", "in",
/// "ft" or "pt"; another one counts as millimetres.
class bindable_number_field_length
    : public bindable_widget<bindable_number_field_length, nui::NumberField, millimetres> {
public:
    /// As with bindable_number_field.
    void setWidgetValue(const millimetres& value) override;
    [[nodiscard]] millimetres getWidgetValue() override;
    [[nodiscard]] const char* className() const override { return "bindable_number_field_length"; }
};

/// Shows `factor` times the model's value.
class bindable_number_field_custom
    : public bindable_widget<bindable_number_field_custom, nui::NumberField, float> {
public:
    bool read(nui::NuiReader& reader) override;
    /// As with bindable_number_field.
    void setWidgetValue(const float& value) override;
    /// What the field shows; it is divided on its way to the model.
    [[nodiscard]] float getWidgetValue() override { return value(); }
    void pushValue() override { send(getWidgetValue() / factor); }
    [[nodiscard]] const char* className() const override { return "bindable_number_field_custom"; }

    float factor = 1;

protected:
    /// Nobody behind this listener is to see the undivided value.
    void handlePush(nui::WidgetEvent& event) override;
};

} // namespace nrd::shared::ui
