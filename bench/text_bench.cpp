// What texts cost: measuring, drawing, typing, properties that reach a label, the language table.

#include "bind/property.h"
#include "live_memory.h"
#include "misc/file_system.h"
#include "misc/host_file_system.h"
#include "nui/draw/drawing.h"
#include "nui/engine/engine.h"
#include "nui/widgets/screen.h"
#include "shared/ui/bindable_text.h"
#include "stopwatch.h"

#include <SDL.h>
#include <SDL_opengl.h>
#include <array>
#include <cstdio>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int rounds = 7;
constexpr int labels_on_page = 200;

std::string label_text(int number)
{
    return "Label number " + std::to_string(number);
}

std::shared_ptr<nui::Screen> open_screen()
{
    auto screen = std::make_shared<nui::Screen>();
    screen->setWidth({800, nui::Px});
    screen->setHeight({640, nui::Px});
    screen->backgroundColor = nui::OpaqueWhite;
    screen->layoutKind = nui::LayoutKind::HorizontalGrid;
    return screen;
}

void show(const std::shared_ptr<nui::Screen>& screen)
{
    screen->openWindow();
    nui::engine().addScreen(screen);
    nui::engine().draw(true);
}

/// Microseconds of one call, as the median of several rounds of so many calls.
template <class Work> double microseconds(int calls, Work work)
{
    return bench::median_of(rounds,
                            [&] {
                                return bench::seconds([&] {
                                    for (int i = 0; i < calls; ++i)
                                        work(i);
                                });
                            }) /
           calls * 1e6;
}

void measure_fonts()
{
    const nui::Fonts& fonts = nui::engine().fonts;
    const std::array<std::pair<const char*, nui::Font*>, 2> both = {
        {{"labels' font", fonts.defaultFont.get()}, {"fields' font", fonts.defaultEditFont.get()}}};
    for (const auto& [name, font] : both) {
        int number = 0;
        const auto measure = [font = font](const std::string& text) {
            if (!font->measureText({.text = text, .size = 12, .width = 300, .height = 20})
                     .isValid()) {
                std::puts("the text has no size");
                std::exit(1);
            }
        };
        const double cold = microseconds(200, [&](int) { measure(label_text(++number)); });
        const std::string same = label_text(0);
        const double again = microseconds(200, [&](int) { measure(same); });
        std::printf("measuring with the %s:       %10.2f us, the same text again %.2f us\n", name,
                    cold, again);
    }
}

int count_textures()
{
    constexpr GLuint most_names = 20000;
    int count = 0;
    for (GLuint name = 1; name < most_names; ++name)
        count += glIsTexture(name) == GL_TRUE ? 1 : 0;
    return count;
}

void measure_labels()
{
    const auto screen = open_screen();
    std::vector<std::shared_ptr<nui::TextLabel>> labels;
    for (int i = 0; i < labels_on_page; ++i) {
        labels.push_back(std::make_shared<nui::TextLabel>());
        labels.back()->widthMode = labels.back()->heightMode = nui::Px;
        labels.back()->widthValue = 120;
        labels.back()->heightValue = 20;
        labels.back()->color = nui::OpaqueBlack;
        labels.back()->setText(label_text(i));
        screen->add(labels.back());
    }
    show(screen);
    int number = 0;
    const double cold = microseconds(1, [&](int) {
        for (const auto& label : labels)
            label->setText(label_text(++number));
        nui::engine().draw(true);
    });
    const std::size_t allocations = bench::allocation_count();
    nui::engine().draw(true);
    const std::size_t allocated = bench::allocation_count() - allocations;
    const int textures = count_textures();
    nui::engine().draw(true);
    const int made_textures = count_textures() - textures;
    const double cached = microseconds(20, [](int) { nui::engine().draw(true); });
    std::printf("a frame of %d labels, all new:         %10.2f us each\n", labels_on_page,
                cold / labels_on_page);
    std::printf("a frame of %d labels, all unchanged:   %10.2f us each\n", labels_on_page,
                cached / labels_on_page);
    std::printf("allocations in the latter:              %10zu  (aim: 0)\n", allocated);
    std::printf("textures made in the latter:            %10d  (aim: 0)\n", made_textures);
    nui::engine().closeScreen(screen);
}

void measure_typing()
{
    const auto screen = open_screen();
    const auto field = std::make_shared<nui::TextField>();
    field->widthMode = field->heightMode = nui::Px;
    field->widthValue = 400;
    field->heightValue = 24;
    field->setVersion(2);
    screen->add(field);
    show(screen);
    double first = 0;
    for (int thousand = 1; thousand <= 10; ++thousand) {
        const double time = bench::seconds([&] {
            for (int i = 0; i < 1000; ++i)
                field->insertText("x");
        });
        if (thousand == 1)
            first = time;
        if (thousand == 1 || thousand == 10)
            std::printf("typing the %2d. thousand of characters:  %10.2f us each, %.1f times the "
                        "first\n",
                        thousand, time * 1e3, time / first);
    }
    nui::engine().closeScreen(screen);
}

void measure_properties()
{
    nrd::bind::property<std::string> value;
    nrd::shared::ui::bindable_textlabel label;
    label.bind(nrd::bind::delegate(value));
    const std::array<std::string, 2> texts = {label_text(1), label_text(2)};
    const auto change = [&](int i) { value.set(texts[static_cast<std::size_t>(i % 2)]); };
    std::printf("a property's change through to a label: %10.2f us each of 10,000\n",
                microseconds(10000, change));
}

double time_language(int rows)
{
    const nrd::misc::path folder = "C:\\vs5_bench";
    nrd::misc::create_directories(folder);
    const nrd::misc::path file = folder / "langfile.txt";
    std::ofstream out = nrd::misc::open_for_writing(file);
    out << "key\ten\tpt\tes\tfr\tde\tit\tjp\tko\tru\tzh-Hant\tzh-Hans\n";
    for (int i = 0; i < rows; ++i) {
        out << "KEY_" << i;
        for (int language = 0; language < 11; ++language)
            out << "\t" << label_text(i);
        out << "\n";
    }
    out.close();
    const std::string path = nrd::misc::error_path_text(nrd::misc::to_host(file));
    return bench::median_of(rounds,
                            [&] { return bench::seconds([&] { const nui::Lang table(path); }); });
}

void measure_language()
{
    const double small = time_language(1000);
    const double large = time_language(10000);
    std::printf(
        "langfile.txt of 10,000 rows:            %10.1f ms, each row %.2f of one of 1,000\n",
        large * 1e3, large / (10 * small));
}

} // namespace

int main(int /*argc*/, char* /*argv*/[])
{
    SDL_Init(SDL_INIT_VIDEO);
    nui::Engine::start(".."); // beside the fonts of the build
    nui::engine().changeLanguageAndFont("en", false, [](const std::string&) {});
    measure_fonts();
    measure_labels();
    measure_typing();
    measure_properties();
    measure_language();
    nui::Engine::close();
    SDL_Quit();
    return 0;
}
