#pragma once

#include "nui/reader/widget_pack.h"
#include "nui/widgets/container.h"

namespace nrd::installer::model {
class installing_tab_model;
}

namespace nrd::installer::ui {

/// The page of a running install. Being shown starts it; each drawn frame polls it, and its end
/// brings the last page. Minimised, the wizard therefore waits there.
class installing_tab : public nui::Cloneable<installing_tab, nui::Container>,
                       public nui::ModuleInit {
public:
    explicit installing_tab(model::installing_tab_model& shared);
    installing_tab(const installing_tab& other) = default;
    installing_tab& operator=(const installing_tab& other);
    ~installing_tab() override = default;

    /// Throws missing_widget.
    void init(nui::WidgetPack& pack, nui::WidgetMap& widgets) override;
    void drawContent() override;
    [[nodiscard]] nui::WidgetPtr cloneObject() const override;
    [[nodiscard]] const char* className() const override { return "installing_tab"; }

    [[nodiscard]] model::installing_tab_model& get_model() const;

protected:
    /// The page has come to the front.
    virtual void become_visible();

private:
    static void on_window_opening(nui::WidgetEvent& event);
    static void on_shown(nui::WidgetEvent& event);

    model::installing_tab_model* model_;
};

} // namespace nrd::installer::ui
