#include "inst/installer/ui/end_tab.h"

#include "inst/installer/model/end_tab_model.h"
#include "inst/installer/model/installer_app.h"
#include "inst/installer/ui/find_widget.h"
#include "inst/installer/ui/page_events.h"
#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "streams/installer_log.h"

namespace nrd::installer::ui {

namespace {

end_tab& self(const nui::WidgetEvent& event)
{
    return static_cast<end_tab&>(*static_cast<nui::Widget*>(event.user));
}

} // namespace

end_tab::end_tab(model::end_tab_model& shared) : model_(&shared)
{
    nui::subscribe(*this, nui::plain_event::WindowOpening, on_window_opening,
                   static_cast<nui::Widget*>(this));
}

end_tab::end_tab(const end_tab& other)
    : Cloneable<end_tab, nui::Container>(other), model_(other.model_)
{
}

end_tab& end_tab::operator=(const end_tab& other)
{
    if (this != &other) {
        nui::Container::operator=(other);
    }
    return *this;
}

nui::WidgetPtr end_tab::cloneObject() const
{
    installer_log("End Tab widgets cloning.");
    nui::WidgetPtr copy = Cloneable::cloneObject();
    installer_log("End Tab widgets cloned.");
    return copy;
}

void end_tab::init(nui::WidgetPack& /*pack*/, nui::WidgetMap& /*widgets*/)
{
    installer_log("End Tab widgets initialising.");
    finish_button_ = &find_widget<nui::Widget>(*this, "finish_button");
    install_success_message_ = &find_widget<nui::TextLabel>(*this, "install_success_message");
    install_body_text_ = &find_widget<nui::TextLabel>(*this, "install_body_text");
    nui::subscribe(*finish_button_, nui::plain_event::Activate, on_finish, nullptr);
    installer_log("End Tab widgets initialised.");
}

void end_tab::on_window_opening(nui::WidgetEvent& event)
{
    nui::subscribe(self(event), nui::plain_event::Activate, on_shown, event.user);
}

void end_tab::on_shown(nui::WidgetEvent& event)
{
    if (tells_of_showing(event)) {
        self(event).tell_outcome();
    }
}

void end_tab::on_finish(nui::WidgetEvent& /*event*/)
{
    installer_log("End Tab closing.");
    nui::engine().quit();
}

void end_tab::tell_outcome()
{
    installer_log("End Tab showing.");
    const bool succeeded = model_->app->install_succeeded;
    install_success_message_->setText(
        nui::engine().lang->getText(succeeded ? "installation_complete" : "installation_failed"));
    if (succeeded) {
        name_product();
    } else {
        installer_log("End Tab install message fail.");
    }
    focus(*finish_button_);
}

void end_tab::name_product()
{
    installer_log("Setting up End Tab success message.");
    const std::string product = misc::to_utf8(model_->app->name());
    const std::string text = install_body_text_->getText();
    // The language of the system, where the first page asks for that of the wizard.
    const bool verb_stands_behind = nui::Lang::getDeviceLanguage() == "jp";
    install_body_text_->setText(verb_stands_behind ? product + text : text + product);
    installer_log("Success message displayed.");
}

} // namespace nrd::installer::ui
