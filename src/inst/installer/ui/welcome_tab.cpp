#include "inst/installer/ui/welcome_tab.h"

#include "inst/installation/install_utils.h"
#include "inst/installer/model/installer_app.h"
#include "inst/installer/model/welcome_tab_model.h"
#include "inst/installer/ui/find_widget.h"
#include "inst/installer/ui/folder_picker.h"
#include "inst/installer/ui/page_events.h"
#include "misc/predicate_table.h"
#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "streams/installer_log.h"

namespace nrd::installer::ui {

using misc::to_utf8;

namespace {

constexpr std::int32_t behind_everything = 999999; // the field takes a caret back to its end
constexpr float least_laid_out_width = 2;

std::shared_ptr<shared::ui::dialog> find_dialog(nui::WidgetPack& pack, const std::string& name)
{
    return std::static_pointer_cast<shared::ui::dialog>(
        find_widget<shared::ui::dialog>(pack, "welcome_main", name).shared_from_this());
}

nui::TextLabel& warning_of(shared::ui::dialog& owner)
{
    return find_widget<nui::TextLabel>(owner, "warning_message");
}

void put_in_front(const std::string& name, nui::TextLabel& label)
{
    label.setText(name + label.getText());
}

bool shows_whole_text(const nui::TextField& field)
{
    nui::Font* const font = nui::engine().fonts.defaultEditFont.get();
    return font == nullptr || font->getTextWidth(field.getText(), field.fontSize) <=
                                  field.width - field.padding.both(nui::Axis::X, field.width);
}

welcome_tab& self(const nui::WidgetEvent& event)
{
    return static_cast<welcome_tab&>(*static_cast<nui::Widget*>(event.user));
}

} // namespace

welcome_tab::welcome_tab(model::welcome_tab_model& shared) : model_(&shared)
{
    nui::subscribe(*this, nui::plain_event::WindowOpening, on_window_opening,
                   static_cast<nui::Widget*>(this));
}

welcome_tab::welcome_tab(const welcome_tab& other)
    : Cloneable<welcome_tab, nui::Container>(other), model_(other.model_)
{
}

welcome_tab& welcome_tab::operator=(const welcome_tab& other)
{
    if (this != &other) {
        nui::Container::operator=(other);
    }
    return *this;
}

welcome_tab::~welcome_tab()
{
    app().remove_listener(&listener_);
}

nui::WidgetPtr welcome_tab::cloneObject() const
{
    installer_log("Welcome tab cloning widget.");
    nui::WidgetPtr copy = Cloneable::cloneObject();
    installer_log("Welcome tab widget cloned.");
    return copy;
}

model::installer_app& welcome_tab::app() const
{
    return *model_->app;
}

std::string welcome_tab::product_name() const
{
    return to_utf8(app().name());
}

void welcome_tab::init(nui::WidgetPack& pack, nui::WidgetMap& /*widgets*/)
{
    installer_log("Welcome tab widget initialisation.");
    find_widgets(pack);
    install_path_textfield_->bind(bind::delegate(model_->install_path));
    name_product();
    installer_log("Welcome tab widgets initialised.");
    browse_action_.attach(*browse_button_, [this] { browse(); });
    install_action_.attach(*install_button_, [this] { install(); });
    cancel_action_.attach(*cancel_button_, close);
}

void welcome_tab::find_widgets(nui::WidgetPack& pack)
{
    already_installed_dialog_ = find_dialog(pack, "already_installed_dialog_main");
    obsolete_cutter_dialog_ = find_dialog(pack, "obsolete_cutter_dialog_main");
    program_running_dialog_ = find_dialog(pack, "program_running_dialog_main");
    install_path_textfield_ =
        &find_widget<shared::ui::bindable_textfield>(*this, "install_path_textfield");
    browse_button_ = &find_widget<nui::Widget>(*this, "browse_button");
    install_button_ = &find_widget<nui::Widget>(*this, "install_button");
    cancel_button_ = &find_widget<nui::Widget>(*this, "cancel_button");
    title_label_ = &find_widget<nui::TextLabel>(*this, "title_label");
    body_text_ = &find_widget<nui::TextLabel>(*this, "body_text");
}

void welcome_tab::name_product() const
{
    const std::string product = product_name();
    // In Japanese the verb stands behind.
    if (nui::engine().lang->languageUnicode == "jp") {
        put_in_front(product, *title_label_);
    } else {
        title_label_->setText(title_label_->getText() + product);
    }
    put_in_front(product, *body_text_);
}

void welcome_tab::on_window_opening(nui::WidgetEvent& event)
{
    self(event).open();
}

void welcome_tab::open()
{
    installer_log("Welcome Tab opening.");
    put_in_front(product_name(), warning_of(*program_running_dialog_));
    if (app().is_installed() && !confirm_reinstall()) {
        nui::engine().quit();
        return;
    }
    // Whoever cancels here still gets the page, for as long as the loop takes to end.
    warn_of_obsolete_cutter();
    listener_.user = this;
    listener_.callback = [](void* user) { static_cast<welcome_tab*>(user)->settle_first_layout(); };
    app().add_listener(&listener_);
}

bool welcome_tab::confirm_reinstall() const
{
    installer_log("Software already installed.");
    nui::TextLabel& warning = warning_of(*already_installed_dialog_);
    put_in_front(product_name(), warning);
    warning.setText(warning.getText() + "\n" + to_utf8(app().installed_location()));
    const int result = shared::ui::show_modal(already_installed_dialog_);
    if (result == shared::ui::dialog::ok) {
        installer_log("Already installed OK pressed.");
        return app().change_permissions();
    }
    if (result == shared::ui::dialog::cancel) {
        installer_log("Already installed cancel pressed.");
        return false;
    }
    return true;
}

void welcome_tab::warn_of_obsolete_cutter() const
{
    if (!misc::predicate_table()["has_obsolete_cutter"]()) {
        return;
    }
    installer_log("Obsolete cutter.");
    if (shared::ui::show_modal(obsolete_cutter_dialog_) == shared::ui::dialog::cancel) {
        nui::engine().quit();
    }
}

/// Not before the field has its width: the end of a long path is what tells paths apart.
void welcome_tab::settle_first_layout()
{
    if (caret_placed_ || !(install_path_textfield_->width > least_laid_out_width)) {
        return;
    }
    // A field without the keyboard shows the path's beginning.
    focus(shows_whole_text(*install_path_textfield_) ? *install_button_ : *install_path_textfield_);
    install_path_textfield_->setCaret(behind_everything);
    caret_placed_ = true;
}

void welcome_tab::browse()
{
    installer_log("Welcome tab browse clicked.");
    const std::optional<misc::path> picked = pick_folder(model_->default_browse_path());
    nui::engine().dropInput();
    if (!picked) {
        return;
    }
    installer_log("Welcome tab folder picked.");
    model_->take_picked_folder(*picked);
    focus(*install_path_textfield_);
    install_path_textfield_->setCaret(behind_everything);
}

void welcome_tab::close()
{
    installer_log("Welcome Tab close.");
    nui::engine().quit();
}

void welcome_tab::install()
{
    installer_log("Welcome tab install clicked.");
    const std::vector<std::string> blockers = installation::blocker_processes(app().get_specs());
    if (!blockers.empty()) {
        show_blockers(blockers);
        return;
    }
    if (model_->accept_install_path()) {
        installer_log("Change to installing main page.");
        show_page(*this, "installing_main");
    }
}

void welcome_tab::show_blockers(const std::vector<std::string>& blockers) const
{
    installer_log("Block list has content.");
    const char* const key = blockers.size() == 1 ? "close_process" : "close_processes";
    std::string text = nui::engine().lang->getText(key) + "\n\n";
    for (const std::string& blocker : blockers) {
        text += blocker + "\n";
    }
    warning_of(*program_running_dialog_).setText(text);
    installer_log("Launch program running dialog.");
    shared::ui::show(program_running_dialog_);
}

} // namespace nrd::installer::ui
