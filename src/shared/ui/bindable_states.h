#pragma once

#include "nui/widgets/multi_state_button.h"
#include "shared/ui/bindable_widget.h"

#include <string>

namespace nrd::shared::ui {

/// A button whose picture 0 is false and whose others are true.
template <class Self, push_from From>
class bindable_flag : public bindable_widget<Self, nui::MultiStateButton, bool, From> {
public:
    void setWidgetValue(const bool& value) override { this->setState(value ? 1 : 0); }
    [[nodiscard]] bool getWidgetValue() override { return this->state() != 0; }
};

class bindable_checkbox : public bindable_flag<bindable_checkbox, push_from::construction> {
public:
    [[nodiscard]] const char* className() const override { return "bindable_checkbox"; }
};

class bindable_multi_state_button
    : public bindable_flag<bindable_multi_state_button, push_from::construction> {
public:
    [[nodiscard]] const char* className() const override { return "bindable_multi_state_button"; }
};

class bindable_radio_button : public bindable_flag<bindable_radio_button, push_from::window> {
public:
    [[nodiscard]] const char* className() const override { return "bindable_radio_button"; }
};

/// One of several that are bound to one property: the one whose id is the value is on.
class bindable_radio_button_string
    : public bindable_widget<bindable_radio_button_string, nui::MultiStateButton, std::string,
                             push_from::construction> {
public:
    void setWidgetValue(const std::string& value) override { setState(value == id ? 1 : 0); }
    /// The id, on or off: what a click wants is to be the one.
    [[nodiscard]] std::string getWidgetValue() override { return id; }
    [[nodiscard]] const char* className() const override { return "bindable_radio_button_string"; }

protected:
    /// The click has stepped the state also if this one was on before, and then nothing is emitted.
    void handlePush(nui::WidgetEvent& /*event*/) override
    {
        pushValue();
        showModel();
    }
};

} // namespace nrd::shared::ui
