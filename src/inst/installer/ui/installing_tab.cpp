#include "inst/installer/ui/installing_tab.h"

#include "inst/installer/model/installing_tab_model.h"
#include "inst/installer/ui/find_widget.h"
#include "inst/installer/ui/page_events.h"
#include "nui/events/dispatch.h"
#include "shared/ui/bindable_progress_bar.h"
#include "shared/ui/bindable_text.h"
#include "streams/installer_log.h"

namespace nrd::installer::ui {

namespace {

installing_tab& self(const nui::WidgetEvent& event)
{
    return static_cast<installing_tab&>(*static_cast<nui::Widget*>(event.user));
}

} // namespace

installing_tab::installing_tab(model::installing_tab_model& shared) : model_(&shared)
{
    nui::subscribe(*this, nui::plain_event::WindowOpening, on_window_opening,
                   static_cast<nui::Widget*>(this));
}

installing_tab& installing_tab::operator=(const installing_tab& other)
{
    if (this != &other) {
        nui::Container::operator=(other);
    }
    return *this;
}

nui::WidgetPtr installing_tab::cloneObject() const
{
    installer_log("Cloning Installing Tab widget.");
    nui::WidgetPtr copy = Cloneable::cloneObject();
    installer_log("Installing Tab widget cloned.");
    return copy;
}

model::installing_tab_model& installing_tab::get_model() const
{
    installer_log("Returning Installing Tab model.");
    return *model_;
}

void installing_tab::init(nui::WidgetPack& /*pack*/, nui::WidgetMap& /*widgets*/)
{
    installer_log("Start initialising Installing Tab widgets.");
    find_widget<shared::ui::bindable_progress_bar>(*this, "progress_bar")
        .bind(bind::delegate(model_->progress));
    find_widget<shared::ui::bindable_textlabel>(*this, "file_label")
        .bind(bind::delegate(model_->file_name));
    installer_log("Installing Tab widgets initialised.");
}

void installing_tab::on_window_opening(nui::WidgetEvent& event)
{
    installer_log("Installing Tab opening.");
    nui::subscribe(self(event), nui::plain_event::Activate, on_shown, event.user);
}

void installing_tab::on_shown(nui::WidgetEvent& event)
{
    if (tells_of_showing(event)) {
        self(event).become_visible();
    }
}

void installing_tab::become_visible()
{
    installer_log("Installing Tab visible.");
    model_->start();
}

void installing_tab::drawContent()
{
    if (model_->update()) {
        installer_log("Install drawn.");
        show_page(*this, "end_main");
    }
}

} // namespace nrd::installer::ui
