#pragma once

#include "inst/installer/model/periodic.h"
#include "inst/installer/ui/release_action.h"
#include "nui/reader/widget_pack.h"
#include "nui/widgets/container.h"
#include "nui/widgets/text_label.h"
#include "shared/ui/bindable_text.h"
#include "shared/ui/dialog.h"

#include <memory>
#include <string>

namespace nrd::installer::model {
class installer_app;
class welcome_tab_model;
} // namespace nrd::installer::model

namespace nrd::installer::ui {

/// The first page: the product's name, the folder to install into, and every question that is asked
/// before an install. Copies share the model, and find their widgets themselves.
class welcome_tab : public nui::Cloneable<welcome_tab, nui::Container>, public nui::ModuleInit {
public:
    explicit welcome_tab(model::welcome_tab_model& shared);
    welcome_tab(const welcome_tab& other);
    welcome_tab& operator=(const welcome_tab& other);
    ~welcome_tab() override;

    /// Throws missing_widget.
    void init(nui::WidgetPack& pack, nui::WidgetMap& widgets) override;
    [[nodiscard]] nui::WidgetPtr cloneObject() const override;
    [[nodiscard]] const char* className() const override { return "welcome_tab"; }

private:
    using dialog_ptr = std::shared_ptr<shared::ui::dialog>;

    static void on_window_opening(nui::WidgetEvent& event);
    [[nodiscard]] model::installer_app& app() const;
    [[nodiscard]] std::string product_name() const;
    void find_widgets(nui::WidgetPack& pack);
    void name_product() const;
    void open();
    /// False if the user does not want to go on.
    [[nodiscard]] bool confirm_reinstall() const;
    void warn_of_obsolete_cutter() const;
    void settle_first_layout();
    void browse();
    static void close();
    void install();
    void show_blockers(const std::vector<std::string>& blockers) const;

    model::welcome_tab_model* model_;
    dialog_ptr already_installed_dialog_;
    dialog_ptr obsolete_cutter_dialog_;
    dialog_ptr program_running_dialog_;
    shared::ui::bindable_textfield* install_path_textfield_ = nullptr;
    nui::Widget* browse_button_ = nullptr;
    nui::Widget* install_button_ = nullptr;
    nui::Widget* cancel_button_ = nullptr;
    nui::TextLabel* title_label_ = nullptr;
    nui::TextLabel* body_text_ = nullptr;
    release_action browse_action_;
    release_action install_action_;
    release_action cancel_action_;
    bool caret_placed_ = false;
    model::periodic_listener listener_;
};

} // namespace nrd::installer::ui
