#include "vs/vs_installer/wizard.h"

#include "inst/installer/model/installer_app.h"
#include "inst/installer/ui/find_widget.h"
#include "inst/installer/ui/installer_window.h"
#include "misc/file_system.h"
#include "misc/language.h"
#include "nui/engine/engine.h"
#include "nui/reader/layout_loader.h"
#include "streams/installer_log.h"
#include "vs/vs_installer/widget_injection.h"

#include <memory>

namespace nrd::vs_installer {

namespace {

using installer::ui::installer_window;

void start_toolkit(const misc::path& data_dir)
{
    installer_log("Engine init.");
    nui::Engine::start(misc::host_path_text(data_dir));
    nui::engine().changeLanguageAndFont(
        misc::get_language().c_str(), false,
        [](const std::string& line) { streams::toolkit_log(line); });
}

std::shared_ptr<installer_window> open_window(nui::WidgetMap& widgets)
{
    const nui::WidgetPtr found = widgets["installer_main"];
    installer::ui::require<installer_window>(found.get(), "the wizard", "installer_main");
    auto window = std::static_pointer_cast<installer_window>(found);
    window->openWindow();
    nui::engine().addScreen(window);
    return window;
}

} // namespace

void run_wizard(const misc::path& data_dir, const installation::specs& specs)
{
    start_toolkit(data_dir);
    installer_log("Making injector.");
    register_widgets(specs, widget_names);
    nui::LayoutLoader reader("ui/installer_window.json");
    installer_log("Loading widgets.");
    nui::WidgetMap widgets = reader.load();
    installer_log("Loaded widgets.");
    const std::shared_ptr<installer_window> window = open_window(widgets);

    installer_log("Attempting launch.");
    nui::Engine& engine = nui::engine();
    while (!engine.hasQuit()) {
        if (engine.step()) {
            engine.draw(false);
        }
        window->app().run_periodic();
    }
    installer_log("Post-render loop exit.");
}

} // namespace nrd::vs_installer
