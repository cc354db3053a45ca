#include "tools/nui_preview/preview.h"

#include "nui/engine/engine.h"
#include "nui/reader/resource_path.h"
#include "nui/widgets/screen.h"
#include "shared/ui/bindable_classes.h"
#include "tools/nui_preview/failure.h"
#include "tools/nui_preview/frames.h"
#include "tools/nui_preview/host_path.h"
#include "tools/nui_preview/layout_source.h"
#include "tools/nui_preview/picture.h"
#include "tools/nui_preview/player.h"
#include "tools/nui_preview/widget_tree.h"
#include "tools/nui_preview/wizard_stand_ins.h"

#include <SDL2/SDL.h>

#include <cstring>
#include <memory>

namespace nrd::tools::preview {

namespace {

constexpr Uint64 look_at_files_every = 250; // milliseconds
constexpr const char* driver_without_display = "offscreen";

std::string& last_log_line()
{
    static std::string line;
    return line;
}

/// The toolkit's log lines begin with words for its own log.
std::string reason_of(const std::string& log_line)
{
    const std::size_t end = log_line.find(": ");
    return end == std::string::npos ? log_line : log_line.substr(end + 2);
}

/// Standard error is for sentences about the layout file; a failure quotes the line that tells.
void SDLCALL keep_log_line(void* /*user*/, int /*category*/, SDL_LogPriority /*priority*/,
                           const char* message)
{
    last_log_line() = message;
}

bool has_driver(const char* name)
{
    for (int i = 0; i < SDL_GetNumVideoDrivers(); ++i) {
        if (std::strcmp(SDL_GetVideoDriver(i), name) == 0) {
            return true;
        }
    }
    return false;
}

/// A package that has not been assembled has no fonts yet; the program's own has.
void use_own_fonts_if_needed()
{
    std::string& folder = nui::engine().fonts.fontsDir;
    if (!std::filesystem::exists(host_path(folder))) {
        const std::unique_ptr<char, decltype(&SDL_free)> program(SDL_GetBasePath(), SDL_free);
        folder = std::string(program ? program.get() : "") + "resources/fonts";
    }
}

/// Systems whose display cannot be absent do not have the driver that needs none.
bool can_go_without_display()
{
    return SDL_getenv("DISPLAY") == nullptr && SDL_getenv("WAYLAND_DISPLAY") == nullptr &&
           SDL_getenv("SDL_VIDEODRIVER") == nullptr && has_driver(driver_without_display);
}

} // namespace

preview::preview(std::vector<std::string> args, std::ostream& out, std::ostream& err)
    : args_(std::move(args)), out_(out), err_(err)
{
}

preview::~preview()
{
    screen_.reset();
    if (toolkit_started_) {
        nui::Engine::close();
    }
    SDL_Quit();
}

exit_code preview::run()
{
    try {
        options_ = parse_options(args_);
    } catch (const wrong_options& error) {
        err_ << error.what() << "\n";
        return exit_code::wrong_options;
    }
    if (options_.help) {
        out_ << usage_text;
        return exit_code::done;
    }
    try {
        return run_steps();
    } catch (const script_error& error) {
        err_ << options_.script.value_or("") << ":" << error.line << ": " << error.what() << "\n";
        return exit_code::faulty;
    } catch (const std::exception& error) {
        err_ << error.what() << "\n";
        return exit_code::faulty;
    }
}

exit_code preview::run_steps()
{
    const std::vector<play_command> commands = read_script();
    start_toolkit();
    std::optional<virtual_input> input;
    if (options_.has_output()) {
        input.emplace();
    }
    const bool is_sound = open_layout();
    if (input && screen_) {
        player(*input).play(commands);
        write_outputs();
    } else if (is_sound) {
        watch();
    }
    return is_sound ? exit_code::done : exit_code::faulty;
}

std::vector<play_command> preview::read_script() const
{
    return options_.script ? parse_play_script(read_file(*options_.script))
                           : std::vector<play_command>();
}

void preview::start_toolkit()
{
    SDL_LogSetOutputFunction(keep_log_line, nullptr);
    if (options_.has_output() && can_go_without_display()) {
        SDL_SetHint(SDL_HINT_VIDEODRIVER, driver_without_display);
    }
    // Ctrl+C ends the program also while a layout file keeps it busy.
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    if (SDL_Init(SDL_INIT_VIDEO) != 0) {
        throw failure(std::string("There is no display to open a window on: ") + SDL_GetError() +
                      ".");
    }
    if (options_.resources && !std::filesystem::is_directory(host_path(*options_.resources))) {
        throw failure("There is no folder " + *options_.resources + ".");
    }
    file_ = absolute_name(options_.file);
    const std::string resources =
        options_.resources ? absolute_name(*options_.resources) : resources_of(file_);
    try {
        nui::Engine::start(resources);
    } catch (const std::out_of_range& error) {
        throw failure(nui::joinPath(resources, "langfile.txt") + ": " + error.what());
    }
    register_wizard_stand_ins();
    shared::ui::registerBindableClasses();
    toolkit_started_ = true;
    use_own_fonts_if_needed();
    nui::engine().changeLanguageAndFont(options_.lang.c_str(), false, [](const std::string&) {});
}

bool preview::open_layout()
{
    loaded_layout loaded = load_layout(file_, options_.size);
    files_ = std::move(loaded.files);
    for (const std::string& remark : loaded.remarks) {
        err_ << remark << "\n";
    }
    for (const std::string& fault : loaded.faults) {
        err_ << fault << "\n";
    }
    err_.flush();
    const bool is_sound = loaded.faults.empty();
    // A window is not given up for half of a file that is being written.
    if (!loaded.screen || (!is_sound && !options_.has_output())) {
        return is_sound;
    }
    // The author is in an editor while the file changes.
    const bool in_front = !screen_ || screen_->window->keyboardFocus;
    SDL_SetHint(SDL_HINT_WINDOW_NO_ACTIVATION_WHEN_SHOWN, in_front ? "0" : "1");
    loaded.screen->openWindow();
    if (!loaded.screen->isOpen()) {
        throw failure("The window could not be opened: " + reason_of(last_log_line()) + ".");
    }
    show(loaded.screen);
    return is_sound;
}

void preview::show(const nui::ScreenPtr& next)
{
    const nui::ScreenPtr last = std::exchange(screen_, next);
    nui::engine().addScreen(next);
    next->show();
    settle();
    if (last && last->isOpen()) {
        int x = 0;
        int y = 0;
        SDL_GetWindowPosition(last->window->sdlWindow(), &x, &y);
        SDL_SetWindowPosition(next->window->sdlWindow(), x, y);
        nui::engine().closeScreen(last);
    }
}

void preview::write_outputs() const
{
    if (options_.tree) {
        write_file(*options_.tree, tree_text(*screen_));
    }
    if (options_.picture) {
        write_picture(screen_, *options_.picture);
    }
}

void preview::watch()
{
    auto watched = std::make_unique<file_watch>(files_);
    Uint64 next_look = 0;
    while (!nui::engine().hasQuit()) {
        if (nui::engine().step()) {
            nui::engine().draw(false);
        }
        if (SDL_GetTicks64() < next_look) {
            continue;
        }
        next_look = SDL_GetTicks64() + look_at_files_every;
        if (watched->has_changed()) {
            open_layout();
            watched = std::make_unique<file_watch>(files_);
        }
    }
}

} // namespace nrd::tools::preview
