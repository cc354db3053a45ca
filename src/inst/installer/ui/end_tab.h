#pragma once

#include "nui/reader/widget_pack.h"
#include "nui/widgets/container.h"
#include "nui/widgets/text_label.h"

namespace nrd::installer::model {
struct end_tab_model;
}

namespace nrd::installer::ui {

/// The last page: how the install went. Its button ends the program.
class end_tab : public nui::Cloneable<end_tab, nui::Container>, public nui::ModuleInit {
public:
    explicit end_tab(model::end_tab_model& shared);
    end_tab(const end_tab& other);
    end_tab& operator=(const end_tab& other);
    ~end_tab() override = default;

    /// Throws missing_widget.
    void init(nui::WidgetPack& pack, nui::WidgetMap& widgets) override;
    [[nodiscard]] nui::WidgetPtr cloneObject() const override;
    [[nodiscard]] const char* className() const override { return "end_tab"; }

private:
    static void on_window_opening(nui::WidgetEvent& event);
    static void on_shown(nui::WidgetEvent& event);
    static void on_finish(nui::WidgetEvent& event);
    void tell_outcome();
    void name_product();

    model::end_tab_model* model_;
    nui::Widget* finish_button_ = nullptr;
    nui::TextLabel* install_success_message_ = nullptr;
    nui::TextLabel* install_body_text_ = nullptr;
};

} // namespace nrd::installer::ui
