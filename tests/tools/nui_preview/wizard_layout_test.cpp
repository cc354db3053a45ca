#include "nui/engine/engine.h"
#include "nui/widgets/screen.h"
#include "nui/widgets/text_field.h"
#include "shared/ui/bindable_classes.h"
#include "tools/nui_preview/frames.h"
#include "tools/nui_preview/host_path.h"
#include "tools/nui_preview/layout_source.h"
#include "tools/nui_preview/page_switch.h"
#include "tools/nui_preview/player.h"
#include "tools/nui_preview/wizard_stand_ins.h"

#include <SDL2/SDL.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <set>
#include <string>
#include <vector>

// The product's own layout files and texts, with the fonts that its users see.

namespace {

using namespace nrd::tools::preview;

const std::vector<std::string> languages = {"en", "pt", "es", "fr",      "de",     "it",
                                            "jp", "ko", "ru", "zh-Hant", "zh-Hans"};
const std::string longest_path =
    "C:\\Program Files\\Velmora\\" + std::string(40, 'm') + "\\" + std::string(40, 'W') + "\\VS5";

constexpr float narrowest_field = 240; // shows some folders of a path

std::string resources()
{
    const char* const data = std::getenv("VS5_TEST_DATA");
    return absolute_name(std::string(data != nullptr ? data : "data") + "/../../package/resources");
}

class wizard_layout_test : public testing::Test {
protected:
    wizard_layout_test()
    {
        SDL_Init(SDL_INIT_VIDEO);
        nui::Engine::start(resources());
        register_wizard_stand_ins();
        nrd::shared::ui::registerBindableClasses();
        const std::unique_ptr<char, decltype(&SDL_free)> program(SDL_GetBasePath(), SDL_free);
        nui::engine().fonts.fontsDir = std::string(program ? program.get() : "") + "fonts";
    }

    ~wizard_layout_test() override
    {
        screen_.reset();
        nui::Engine::close();
        SDL_Quit();
    }

    nui::Screen& open(const std::string& file, const std::string& language = "en")
    {
        if (screen_) {
            nui::engine().closeScreen(screen_);
        }
        nui::engine().changeLanguageAndFont(language.c_str(), false, [](const std::string&) {});
        const loaded_layout loaded = load_layout(resources() + "/ui/" + file + ".json", {});
        EXPECT_EQ(loaded.faults, std::vector<std::string>());
        EXPECT_EQ(loaded.remarks, std::vector<std::string>());
        screen_ = loaded.screen;
        screen_->openWindow();
        nui::engine().addScreen(screen_);
        screen_->show();
        settle();
        return *screen_;
    }

    void set_text(const std::string& label, const std::string& text)
    {
        dynamic_cast<nui::TextLabel&>(*screen_->findByName(label)).setText(text);
        screen_->markDirty();
        settle();
    }

    std::string focused() { return screen_->focusedWidget ? screen_->focusedWidget->name : ""; }

    nui::ScreenPtr screen_;
};

nui::Rect box(const nui::Widget& widget)
{
    return {static_cast<std::int32_t>(widget.x), static_cast<std::int32_t>(widget.y),
            static_cast<std::int32_t>(widget.width), static_cast<std::int32_t>(widget.height)};
}

bool overlap(const nui::Rect& one, const nui::Rect& other)
{
    return one.x < other.x + other.width && other.x < one.x + one.width &&
           one.y < other.y + other.height && other.y < one.y + one.height;
}

bool is_inside(const nui::Rect& inner, const nui::Rect& outer)
{
    return inner.x >= outer.x && inner.y >= outer.y &&
           inner.x + inner.width <= outer.x + outer.width &&
           inner.y + inner.height <= outer.y + outer.height;
}

/// A field shows as much of its text as it has room for.
bool fits(const nui::TextLabel& label)
{
    nui::TextLayout layout;
    layout.text = label.getText();
    layout.size = label.fontSize;
    layout.width = label.width;
    float height = label.height;
    if (dynamic_cast<const nui::TextField*>(&label) != nullptr) {
        return label.width >= narrowest_field &&
               nui::engine().fonts.defaultEditFont->getLineHeight(label.fontSize, 1) <= height;
    }
    if (const auto* const button = dynamic_cast<const nui::TextButton*>(&label)) {
        layout.width -= button->padding.both(nui::Axis::X, label.width);
        height -= button->padding.both(nui::Axis::Y, label.height);
        layout.wordWrap = button->wordWrap;
    }
    const nui::TextSize needed = nui::engine().fonts.defaultFont->measureText(layout);
    return layout.text.empty() || (needed.width <= layout.width && needed.height <= height);
}

/// One line for each widget whose text is cut, or that lies on another or outside its parent.
std::string misfits(const nui::Widget& widget)
{
    std::string found;
    const std::string who = widget.name.empty() ? widget.className() : widget.name;
    const auto* const label = dynamic_cast<const nui::TextLabel*>(&widget);
    if (label != nullptr && !fits(*label)) {
        found += who + " has no room for \"" + label->getText() + "\"\n";
    }
    const auto* const container = dynamic_cast<const nui::Container*>(&widget);
    if (container == nullptr) {
        return found;
    }
    std::vector<const nui::Widget*> drawn;
    for (const nui::WidgetPtr& child : container->children()) {
        if (!child->isDrawn()) {
            continue;
        }
        if (!(child->width > 0) || child->height < 0) {
            found += child->name + " is squeezed out of " + who + "\n";
        }
        if (!is_inside(box(*child), box(widget))) {
            found += child->name + " sticks out of " + who + "\n";
        }
        for (const nui::Widget* const other : drawn) {
            if (overlap(box(*child), box(*other))) {
                found += child->name + " lies on " + other->name + "\n";
            }
        }
        drawn.push_back(child.get());
        found += misfits(*child);
    }
    return found;
}

TEST_F(wizard_layout_test, every_page_has_room_for_its_texts_in_every_language)
{
    for (const std::string& language : languages) {
        nui::Screen& window = open("installer_window", language);
        for (const char* const page : {"welcome_main", "installing_main", "end_main"}) {
            switch_to_page(window, page);
            settle();
            EXPECT_EQ(misfits(window), "") << page << " in " << language;
        }
        set_text("install_success_message", nui::engine().lang->getText("installation_failed"));
        EXPECT_EQ(misfits(window), "") << "a failure in " << language;
    }
}

TEST_F(wizard_layout_test, every_dialog_has_room_for_its_longest_texts_in_every_language)
{
    const std::string product = "Velmora Studio 5";
    std::string blockers = "\n\n";
    for (int count = 0; count < 8; ++count) {
        blockers += "velmora_cutting_helper_process_" + std::to_string(count) + ".exe\n";
    }
    for (const std::string& language : languages) {
        const auto text = [](const char* key) { return nui::engine().lang->getText(key); };
        nui::Screen& installed = open("already_installed_dialog", language);
        set_text("warning_message", product + text("already_installed") + "\n" + longest_path);
        EXPECT_EQ(misfits(installed), "") << language;

        EXPECT_EQ(misfits(open("obsolete_cutter_dialog", language)), "") << language;

        nui::Screen& running = open("program_running_dialog", language);
        for (const char* const key : {"close_process", "close_processes"}) {
            set_text("warning_message", text(key) + blockers);
            EXPECT_EQ(misfits(running), "") << key << " in " << language;
        }
        set_text("warning_message", product + text("program_running"));
        EXPECT_EQ(misfits(running), "") << language;
    }
}

TEST_F(wizard_layout_test, a_text_that_is_too_long_is_told)
{
    nui::Screen& window = open("installer_window");
    set_text("title_label", "A title that goes on and on until there is no more room for what the "
                            "page says below it, whatever that may be, and however it is said");
    EXPECT_NE(misfits(window).find("title_label has no room"), std::string::npos);
    open("installer_window");
    set_text("browse_button", "A button that leaves the field no room at all beside it, and more");
    EXPECT_NE(misfits(*screen_).find("install_path_textfield has no room"), std::string::npos);
}

TEST_F(wizard_layout_test, tab_goes_through_each_page_and_dialog_in_reading_order)
{
    const auto walk = [&](const std::string& first, int steps) {
        virtual_input input;
        player keyboard(input);
        keyboard.play({{1, focus_widget{first}}});
        std::string order = focused();
        for (int step = 0; step < steps; ++step) {
            keyboard.play({{1, hit_key{SDLK_TAB, 0}}});
            order += " " + focused();
        }
        return order;
    };
    open("installer_window");
    EXPECT_EQ(walk("install_path_textfield", 4),
              "install_path_textfield browse_button install_button cancel_button "
              "install_path_textfield");
    for (const char* const dialog : {"already_installed", "obsolete_cutter", "program_running"}) {
        open(std::string(dialog) + "_dialog");
        EXPECT_EQ(walk("ok_button", 2), "ok_button cancel_button ok_button") << dialog;
    }
}

void collect_keys(const nlohmann::json& value, std::set<std::string>& keys)
{
    for (const auto& [name, member] : value.items()) {
        const bool is_text = name == "text" || name == "toolTip" || name == "windowTitle";
        if (is_text && !member.get<std::string>().empty()) {
            keys.insert(member.get<std::string>());
        } else if (member.is_structured()) {
            collect_keys(member, keys);
        }
    }
}

TEST_F(wizard_layout_test, every_key_has_a_text_in_every_language)
{
    std::set<std::string> keys = {"close_process", "close_processes", "installation_complete",
                                  "installation_failed"};
    std::vector<std::filesystem::path> files = {host_path(resources()) / "text_menu.json"};
    for (const auto& file : std::filesystem::directory_iterator(host_path(resources() + "/ui"))) {
        files.push_back(file.path());
    }
    for (const std::filesystem::path& file : files) {
        std::ifstream stream(file);
        collect_keys(nlohmann::json::parse(stream), keys);
    }
    EXPECT_GT(keys.size(), 20U);
    for (const std::string& language : languages) {
        nui::engine().lang->setLanguage(language);
        for (const std::string& key : keys) {
            EXPECT_TRUE(nui::engine().lang->has(key)) << key << " in " << language;
        }
    }
}

} // namespace
