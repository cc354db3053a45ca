#pragma once

#include "nui/reader/widget_pack.h"
#include "nui/widgets/screen.h"

namespace nrd::installer::model {
class installer_app;
struct installer_window_model;
} // namespace nrd::installer::model

namespace nrd::installer::ui {

/// The wizard's window with its pages.
class installer_window : public nui::Cloneable<installer_window, nui::Screen>,
                         public nui::ModuleInit {
public:
    explicit installer_window(model::installer_window_model& shared);

    /// Shows the first page. Throws missing_widget.
    void init(nui::WidgetPack& pack, nui::WidgetMap& widgets) override;
    [[nodiscard]] nui::WidgetPtr cloneObject() const override;
    [[nodiscard]] const char* className() const override { return "installer_window"; }

    [[nodiscard]] model::installer_app& app() const;

private:
    model::installer_window_model* model_;
};

} // namespace nrd::installer::ui
