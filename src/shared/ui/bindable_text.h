#pragma once

#include "nui/widgets/text_field.h"
#include "nui/widgets/text_label.h"
#include "shared/ui/bindable_widget.h"

#include <string>

namespace nrd::shared::ui {

/// The model has each keystroke before the key is done with.
class bindable_textfield : public bindable_widget<bindable_textfield, nui::TextField, std::string> {
public:
    static constexpr std::array PushesOn = {nui::plain_event::Activate, nui::text::Committed,
                                            nui::text::Changed};

    /// `wordWrap` and `maxLines` hold whatever TextField makes of them.
    bool read(nui::NuiReader& reader) override;
    void setWidgetValue(const std::string& value) override { setText(value); }
    [[nodiscard]] std::string getWidgetValue() override { return getText(); }
    [[nodiscard]] const char* className() const override { return "bindable_textfield"; }
};

class bindable_integer_textfield
    : public bindable_widget<bindable_integer_textfield, nui::TextField, int> {
public:
    void setWidgetValue(const int& value) override { setText(std::to_string(value)); }
    /// Throws std::invalid_argument for a text that begins with no number, an empty one included,
    /// and std::out_of_range for a number that is none of an int.
    [[nodiscard]] int getWidgetValue() override;
    [[nodiscard]] const char* className() const override { return "bindable_integer_textfield"; }
};

class bindable_textlabel : public bindable_widget<bindable_textlabel, nui::TextLabel, std::string> {
public:
    void setWidgetValue(const std::string& value) override { setText(value); }
    [[nodiscard]] std::string getWidgetValue() override { return getText(); }
    [[nodiscard]] const char* className() const override { return "bindable_textlabel"; }
};

} // namespace nrd::shared::ui
