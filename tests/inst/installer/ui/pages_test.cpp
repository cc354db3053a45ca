#include "inst/installer/model/end_tab_model.h"
#include "inst/installer/model/installer_app.h"
#include "inst/installer/model/installer_window_model.h"
#include "inst/installer/model/installing_tab_model.h"
#include "inst/installer/model/welcome_tab_model.h"
#include "inst/installer/ui/end_tab.h"
#include "inst/installer/ui/find_widget.h"
#include "inst/installer/ui/installer_window.h"
#include "inst/installer/ui/installing_tab.h"
#include "inst/installer/ui/welcome_tab.h"
#include "misc/predicate_table.h"
#include "misc/registry.h"
#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/reader/layout_loader.h"
#include "nui/reader/widget_registry.h"
#include "nui/widgets/pages_container.h"
#include "shared/ui/bindable_classes.h"
#include "support/log_capture.h"
#include "support/nui/fixed_font.h"
#include "support/nui/layout_folder.h"
#include "support/nui/running_toolkit.h"
#include "support/product_package.h"
#include "support/running_program.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace nrd::installer::ui {
namespace {

using misc::to_utf8;

/// What the classes that the toolkit knows are made with: the models of the running test.
struct models {
    explicit models(const installation::specs& specs)
        : app(specs), window(app), welcome(app), installing(app), end(app)
    {
    }

    static models*& current()
    {
        static models* of_the_test = nullptr;
        return of_the_test;
    }

    model::installer_app app;
    model::installer_window_model window;
    model::welcome_tab_model welcome;
    model::installing_tab_model installing;
    model::end_tab_model end;
};

template <class Widget, class Model> class factory : public nui::WidgetFactory {
public:
    explicit factory(Model models::*which) : which_(which) {}
    [[nodiscard]] nui::WidgetPtr create() override
    {
        return std::make_shared<Widget>(models::current()->*which_);
    }

private:
    Model models::*which_;
};

template <class Widget, class Model> void register_page(const char* name, Model models::*which)
{
    nui::registerWidgetClass(name, std::make_unique<factory<Widget, Model>>(which));
}

using answer = void (shared::ui::dialog::*)();

/// The product's own layout, worked in process.
class wizard_pages : public test::product_package {
protected:
    wizard_pages()
    {
        shared::ui::registerBindableClasses();
        register_page<installer_window>("installer_window", &models::window);
        register_page<welcome_tab>("welcome_tab", &models::welcome);
        register_page<installing_tab>("installing_tab", &models::installing);
        register_page<end_tab>("end_tab", &models::end);
        nui::Engine& engine = nui::engine();
        // As the source tree has it, without the fonts that a package gets.
        const std::filesystem::path data(std::getenv("VS5_TEST_DATA"));
        engine.basePath = (data.parent_path().parent_path() / "package/resources").string();
        engine.resourceDirectory = engine.basePath;
        engine.lang = std::make_unique<nui::Lang>(engine.basePath + "/langfile.txt");
        engine.lang->setLanguage("en");
        engine.fonts.defaultFont = std::make_unique<nui::test::FixedFont>();
        engine.fonts.defaultEditFont = std::make_unique<nui::test::FixedFont>();
        misc::predicate_table()["has_obsolete_cutter"] = [] { return obsolete(); };
        obsolete() = false;
    }

    ~wizard_pages() override
    {
        models::current() = nullptr;
        misc::predicate_table().clear();
    }

    static bool& obsolete()
    {
        static bool is_obsolete = false;
        return is_obsolete;
    }

    /// As the system would list it from an earlier run.
    void load_over_an_older_installation()
    {
        const installation::spec again = product("a");
        const misc::text32 key = misc::uninstall_key(again.app_name());
        misc::create_key(key);
        misc::set_string_value(key, U"InstallLocation", U"\"C:\\Old place\\\"");
        load({again});
    }

    void use_models_of(const installation::specs& specs)
    {
        models_ = std::make_unique<models>(specs);
        models::current() = models_.get();
    }

    /// Before the window opens.
    void load(const installation::specs& specs)
    {
        window_.reset();
        widgets_.clear();
        loader_.reset();
        use_models_of(specs);
        loader_ = std::make_unique<nui::LayoutLoader>("ui/installer_window.json");
        widgets_ = loader_->load();
        window_ = std::dynamic_pointer_cast<installer_window>(widgets_["installer_main"]);
        ASSERT_TRUE(window_);
    }

    /// The window is there, with a drawn page.
    void open(const installation::specs& specs)
    {
        load(specs);
        open_window();
    }

    void open_window()
    {
        window_->openWindow();
        nui::engine().addScreen(window_);
        toolkit_.target = window_;
        while (!window_->isLaidOut()) {
            toolkit_.frame();
            SDL_Delay(1);
        }
        toolkit_.turn();
        nui::engine().keyboard.focusScreen = window_;
        nui::engine().screens.makeCurrent(window_);
        models_->app.run_periodic();
    }

    /// The same, where a dialog comes first: it is answered a little later.
    void open_and_answer(const std::string& name, answer given)
    {
        shared::ui::dialog& asked = dialog(name);
        nui::engine().setClock([] { return std::uint64_t(SDL_GetTicks64()); });
        std::function<void()> act = [&] { (asked.*given)(); };
        const auto on_timer = [](nui::WidgetEvent& event) {
            (*static_cast<std::function<void()>*>(event.user))();
        };
        nui::subscribe(asked, nui::TimerDue, on_timer, &act);
        nui::engine().addTimer(30, asked.shared_from_this(), false);
        open_window();
    }

    [[nodiscard]] shared::ui::dialog& dialog(const std::string& name)
    {
        return dynamic_cast<shared::ui::dialog&>(*widgets_.at(name + "_dialog_main"));
    }

    [[nodiscard]] std::string warning(const std::string& name)
    {
        return find_widget<nui::TextLabel>(dialog(name), "warning_message").getText();
    }

    [[nodiscard]] std::string text(const std::string& name)
    {
        return find_widget<nui::TextLabel>(*window_, name).getText();
    }

    [[nodiscard]] std::string page()
    {
        return find_widget<nui::PagesContainer>(*window_, "tab_holder").current()->name;
    }

    void point_at(const std::string& name)
    {
        const auto& widget = find_widget<nui::Widget>(*window_, name);
        toolkit_.move(static_cast<int>(widget.x + widget.width / 2),
                      static_cast<int>(widget.y + widget.height / 2));
    }

    void click(const std::string& name)
    {
        point_at(name);
        toolkit_.press();
        toolkit_.release();
    }

    /// Frames until the last page is there.
    void run_to_the_end()
    {
        while (page() != "end_main") {
            SDL_Delay(2);
            toolkit_.frame();
        }
        toolkit_.frame();
    }

    std::unique_ptr<models> models_; // outlive the pages
    nui::test::RunningToolkit toolkit_;
    std::unique_ptr<nui::LayoutLoader> loader_;
    nui::WidgetMap widgets_;
    std::shared_ptr<installer_window> window_;
    test::log_capture log_;
};

TEST_F(wizard_pages, install_once_whatever_bubbles_up_to_them)
{
    open({product("a")});
    EXPECT_EQ(window_->title(), "Install Product a");
    EXPECT_EQ(page(), "welcome_main");
    click("install_button");
    EXPECT_EQ(page(), "installing_main");
    nui::Widget& installing = find_widget<nui::Widget>(*window_, "progress_bar");
    nui::WidgetEvent click_inside;
    nui::bubble(installing, click_inside);
    run_to_the_end();
    EXPECT_EQ(log_.count("Installing tab start install."), 1);
    EXPECT_NE(installed().find("a\\a.txt: a\n"), std::string::npos);
    const std::string body = text("install_body_text");
    EXPECT_TRUE(body.ends_with("Product a")) << body;
    EXPECT_EQ(window_->focusedWidget->name, "finish_button");
    click("finish_button");
    EXPECT_TRUE(nui::engine().hasQuit());
    EXPECT_EQ(log_.count("End Tab showing."), 1);
}

TEST_F(wizard_pages, do_not_hear_of_a_release_that_comes_when_they_are_gone)
{
    open({product("a")});
    point_at("install_button");
    toolkit_.press();
    toolkit_.key(SDLK_RETURN);
    run_to_the_end();
    toolkit_.release();
    EXPECT_EQ(page(), "end_main");
    EXPECT_EQ(log_.count("Welcome tab install clicked."), 1);
}

TEST_F(wizard_pages, show_the_end_of_a_path_that_is_too_long_for_its_field)
{
    installation::spec deep = product("a");
    deep.set_var(U"APP_INSTALL_PATH", U"C:\\" + misc::text32(100, U'x') + U"\\end");
    open({deep});
    const auto& field =
        find_widget<shared::ui::bindable_textfield>(*window_, "install_path_textfield");
    EXPECT_TRUE(field.isFocused());
    EXPECT_EQ(field.caret(), 107);
    EXPECT_LT(field.scrollX(), 0);
}

TEST_F(wizard_pages, tell_of_a_failed_install)
{
    open({broken_product("a")});
    const std::string before = text("install_body_text");
    click("install_button");
    // A failure that comes in the same poll as the end would not be seen.
    while (models_->app.get_observer().last_event().id != "in_file_does_not_exist") {
        SDL_Delay(1);
    }
    run_to_the_end();
    EXPECT_EQ(text("install_success_message"), nui::engine().lang->getText("installation_failed"));
    EXPECT_EQ(text("install_body_text"), before);
    EXPECT_EQ(log_.count("End Tab install message fail."), 1);
    EXPECT_EQ(installed(), "a\\\n") << "the folder stays, as it was the first install";
}

TEST_F(wizard_pages, put_the_name_where_each_language_wants_it)
{
    load({product("a")});
    const auto key_text = [](const char* key) { return nui::engine().lang->getText(key); };
    EXPECT_EQ(text("title_label"), key_text("welcome_title") + "Product a");
    EXPECT_EQ(text("body_text"), "Product a" + key_text("welcome_body"));
    nui::engine().lang->setLanguage("jp");
    load({product("a")});
    EXPECT_EQ(text("title_label"), "Product a" + key_text("welcome_title"));
    EXPECT_EQ(text("body_text"), "Product a" + key_text("welcome_body"));
}

TEST_F(wizard_pages, act_when_any_button_is_released_or_a_key_says_so)
{
    installation::spec refused = product("a");
    refused.set_var(U"APP_INSTALL_PATH", U"C:\\");
    open({refused});
    EXPECT_EQ(window_->focusedWidget->name, "install_button");
    const std::string line = "Welcome tab install clicked.";
    click("install_button");
    EXPECT_EQ(log_.count(line), 1) << "a click is one release";
    point_at("install_button");
    toolkit_.press(3);
    toolkit_.release(3);
    EXPECT_EQ(log_.count(line), 2);
    point_at("title_label");
    toolkit_.press();
    point_at("install_button");
    toolkit_.release();
    EXPECT_EQ(log_.count(line), 3);
    nui::engine().setFocus(find_widget<nui::Widget>(*window_, "install_button").shared_from_this());
    toolkit_.key(SDLK_SPACE);
    EXPECT_EQ(log_.count(line), 4);
    // Return in the field is for the page's main button.
    nui::engine().setFocus(
        find_widget<nui::Widget>(*window_, "install_path_textfield").shared_from_this());
    toolkit_.key(SDLK_RETURN);
    EXPECT_EQ(log_.count(line), 5);
    EXPECT_EQ(page(), "welcome_main") << "the top of a drive is refused";
    EXPECT_EQ(log_.count("Valid filepath selected."), 0);
    click("cancel_button");
    EXPECT_EQ(log_.count("Welcome Tab close."), 1);
    EXPECT_TRUE(nui::engine().hasQuit());
}

TEST_F(wizard_pages, name_the_programs_that_must_be_closed)
{
    installation::spec blocked = product("a");
    blocked.block_processes = {{"vs5_blocker_one", "win"}, {"vs5_blocker_two", "win"}};
    open({blocked});
    const std::string first = warning("program_running");
    EXPECT_TRUE(first.starts_with("Product a")) << first;
    {
        const test::running_program one(folder_ / "vs5_blocker_one.exe");
        click("install_button");
        EXPECT_EQ(warning("program_running"),
                  nui::engine().lang->getText("close_process") + "\n\nvs5_blocker_one\n");
        EXPECT_TRUE(dialog("program_running").isOpen());
        EXPECT_FALSE(window_->window->enabled);
        dialog("program_running").on_ok_pressed();
        EXPECT_TRUE(window_->window->enabled);
        const test::running_program two(folder_ / "vs5_blocker_two.exe");
        click("install_button");
        EXPECT_EQ(warning("program_running"), nui::engine().lang->getText("close_processes") +
                                                  "\n\nvs5_blocker_one\nvs5_blocker_two\n");
        dialog("program_running").on_ok_pressed();
    }
    EXPECT_EQ(page(), "welcome_main");
    click("install_button");
    EXPECT_EQ(page(), "installing_main");
    run_to_the_end();
}

TEST_F(wizard_pages, ask_before_an_older_installation_is_replaced)
{
    load_over_an_older_installation();
    const std::string before = warning("already_installed");
    open_and_answer("already_installed", &shared::ui::dialog::on_ok_pressed);
    EXPECT_EQ(warning("already_installed"), "Product a" + before + "\n\"C:\\Old place\\\"");
    EXPECT_EQ(log_.count("Already installed OK pressed."), 1);
    EXPECT_EQ(log_.count("Installer App changing permissions."), 1);
    EXPECT_FALSE(nui::engine().hasQuit());
    EXPECT_TRUE(window_->isOpen());
}

TEST_F(wizard_pages, take_no_for_an_answer)
{
    obsolete() = true;
    load_over_an_older_installation();
    open_and_answer("already_installed", &shared::ui::dialog::on_cancel);
    EXPECT_TRUE(nui::engine().hasQuit());
    EXPECT_EQ(log_.count("Already installed cancel pressed."), 1);
    EXPECT_EQ(log_.count("Obsolete cutter."), 0) << "nothing more is asked";
    EXPECT_TRUE(window_->isOpen()) << "the window opens nevertheless";
}

TEST_F(wizard_pages, warn_of_cutters_that_are_served_no_more)
{
    obsolete() = true;
    load({product("a")});
    open_and_answer("obsolete_cutter", &shared::ui::dialog::on_cancel);
    EXPECT_TRUE(nui::engine().hasQuit());
    // The page is complete all the same.
    EXPECT_NE(window_->focusedWidget, nullptr);
}

TEST_F(wizard_pages, say_which_widget_their_layout_lacks)
{
    use_models_of({product("a")});
    const nui::test::LayoutFolder layout;
    layout.write("page.json", "{'widgets': [{'class': 'end_tab', 'id': 'end_main', 'children': ["
                              "{'class': 'TextLabel', 'name': 'finish_button', 'text': 'x'},"
                              "{'class': 'Widget', 'name': 'install_success_message'}]}]}");
    try {
        nui::LayoutLoader("page.json").load();
        FAIL() << "a message that is no label will not do";
    } catch (const missing_widget& error) {
        EXPECT_STREQ(error.what(), "The layout of end_main has no \"install_success_message\" of "
                                   "the class that is needed.");
    }
}

TEST_F(wizard_pages, share_their_models_with_their_copies)
{
    load({product("a")});
    for (const char* const name : {"welcome_main", "installing_main", "end_main"}) {
        EXPECT_NE(widgets_.at(name)->clone(), nullptr);
    }
    EXPECT_EQ(log_.count("Welcome tab cloning widget.") + log_.count("Welcome tab widget cloned."),
              2);
    EXPECT_EQ(log_.count("Cloning Installing Tab widget.") +
                  log_.count("Installing Tab widget cloned."),
              2);
    EXPECT_EQ(log_.count("End Tab widgets cloning.") + log_.count("End Tab widgets cloned."), 2);
    const auto copy =
        std::dynamic_pointer_cast<installing_tab>(widgets_.at("installing_main")->clone());
    EXPECT_EQ(&copy->get_model(), &models_->installing);
    EXPECT_EQ(log_.lines().back(), "Returning Installing Tab model.");
}

} // namespace
} // namespace nrd::installer::ui
