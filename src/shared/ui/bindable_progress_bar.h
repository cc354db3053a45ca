#pragma once

#include "nui/widgets/progress_bar.h"
#include "shared/ui/bindable_widget.h"

namespace nrd::shared::ui {

class bindable_progress_bar
    : public bindable_widget<bindable_progress_bar, nui::ProgressBar, float> {
public:
    void setWidgetValue(const float& value) override { setValue(value); }
    [[nodiscard]] float getWidgetValue() override { return value(); }
    [[nodiscard]] const char* className() const override { return "bindable_progress_bar"; }
};

} // namespace nrd::shared::ui
