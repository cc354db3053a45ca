// Whether layout, frames, hit tests and loading stay linear in the number of widgets, and whether
// a frame allocates.

#include "live_memory.h"
#include "misc/file_system.h"
#include "misc/host_file_system.h"
#include "nui/draw/draw_call.h"
#include "nui/engine/engine.h"
#include "nui/reader/layout_loader.h"
#include "nui/reader/widget_registry.h"
#include "nui/widgets/screen.h"
#include "stopwatch.h"

#include <SDL.h>
#include <array>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <memory>
#include <string>

namespace {

using nui::Container;
using nui::SizeMode;
using nui::Widget;
using nui::WidgetPtr;

constexpr int depth_of_nesting = 6;

/// All the ways to be sized, in turn.
void size_by_turns(Widget& widget, int turn)
{
    struct size {
        float value;
        SizeMode mode;
    };
    constexpr std::array<size, 5> widths = {
        {{20, nui::Px}, {1, nui::Weight}, {0.25F, nui::Percent}, {10, nui::Pt}, {2, nui::Weight}}};
    const size& width = widths[static_cast<std::size_t>(turn) % widths.size()];
    const size& height = widths[static_cast<std::size_t>(turn / 5) % widths.size()];
    widget.widthValue = width.value;
    widget.widthMode = width.mode;
    widget.heightValue = height.value;
    widget.heightMode = height.mode;
    widget.margin.left = 1;
    widget.backgroundColor = 0xFF202020U + static_cast<nui::Color>(turn % 64);
    widget.topColor = nui::OpaqueBlack;
}

/// Fills the container with `count` widgets in all, containers included; answers how many there
/// came to be.
int fill(Container& container, int count, int branches, int depth, int& turn)
{
    int made = 0;
    const bool leaves = depth == depth_of_nesting;
    for (int i = 0; made < count && (leaves || i < branches); ++i) {
        if (leaves) {
            const auto leaf = std::make_shared<Widget>();
            size_by_turns(*leaf, turn++);
            container.add(leaf);
            ++made;
            continue;
        }
        const auto inner = std::make_shared<Container>();
        size_by_turns(*inner, turn++);
        inner->layoutKind =
            depth % 2 == 0 ? nui::LayoutKind::Horizontal : nui::LayoutKind::Vertical;
        container.add(inner);
        const int share = (count - made) / (branches - i);
        made += 1 + fill(*inner, share - 1, branches, depth + 1, turn);
    }
    return made;
}

struct tree {
    explicit tree(int wanted)
    {
        root->widthMode = root->heightMode = nui::Px;
        root->widthValue = root->heightValue = 2000;
        int turn = 0;
        const int branches =
            static_cast<int>(std::lround(std::pow(wanted, 1.0 / depth_of_nesting)));
        count = fill(*root, wanted, branches, 1, turn);
    }

    void lay_out() const
    {
        root->layout(nui::layout_flag::First);
        root->place();
    }

    std::shared_ptr<Container> root = std::make_shared<Container>();
    int count = 0;
};

/// Microseconds of one call, as the median of several rounds of about 20 ms.
template <class Work> double microseconds(Work work)
{
    const double once = bench::seconds(work);
    const int repeats = std::max(1, static_cast<int>(0.02 / std::max(once, 1e-8)));
    return bench::median_of(7,
                            [&] {
                                return bench::seconds([&] {
                                    for (int i = 0; i < repeats; ++i)
                                        work();
                                });
                            }) /
           repeats * 1e6;
}

void measure_layout()
{
    std::array<double, 3> each = {};
    std::size_t place = 0;
    for (const int wanted : {100, 1000, 10000}) {
        const tree t(wanted);
        const double time = microseconds([&] { t.lay_out(); });
        each[place++] = time / t.count;
        std::printf("full layout of %5d widgets:           %10.1f us, %6.3f us each\n", t.count,
                    time, time / t.count);
        const double valid = microseconds([&] { t.root->layout(0); });
        std::printf("unforced pass over them, valid:        %10.4f us\n", valid);
    }
    std::printf("each of 10,000 / each of 1,000:        %10.2f  (aim: 1.25 or less)\n",
                each[2] / each[1]);
}

/// Containers in each other, each with a widget beside the next one.
std::shared_ptr<Container> nested(int depth, SizeMode mode)
{
    auto root = std::make_shared<Container>();
    root->widthMode = root->heightMode = nui::Px;
    root->widthValue = root->heightValue = 2000;
    Container* outer = root.get();
    for (int level = 0; level < depth; ++level) {
        const auto leaf = std::make_shared<Widget>();
        leaf->widthMode = leaf->heightMode = nui::Px;
        leaf->widthValue = leaf->heightValue = 10;
        outer->add(leaf);
        const auto inner = std::make_shared<Container>();
        inner->widthMode = inner->heightMode = mode;
        inner->padding.left = inner->padding.top = 1;
        inner->layoutKind =
            level % 2 == 0 ? nui::LayoutKind::Horizontal : nui::LayoutKind::Vertical;
        outer->add(inner);
        outer = inner.get();
    }
    return root;
}

void measure_depth()
{
    struct kind {
        const char* name;
        SizeMode mode;
    };
    for (const kind& each : {kind{"by weight", nui::Weight}, kind{"by content", nui::Content}}) {
        std::array<double, 3> level = {};
        std::size_t place = 0;
        for (const int depth : {10, 20, 40}) {
            const std::shared_ptr<Container> root = nested(depth, each.mode);
            const double time = microseconds([&] {
                root->layout(nui::layout_flag::First);
                root->place();
            });
            level[place++] = time / depth;
            std::printf("full layout %2d deep, %-10s        %10.1f us, %6.3f us a level\n", depth,
                        each.name, time, time / depth);
        }
        std::printf("a level of 40 / a level of 10:         %10.2f  (aim: 1.25 or less)\n",
                    level[2] / level[0]);
    }
}

/// A flat page of widgets that are all visible, in a window.
std::shared_ptr<nui::Screen> open_page(int widgets)
{
    auto screen = std::make_shared<nui::Screen>();
    screen->setWidth({800, nui::Px});
    screen->setHeight({640, nui::Px});
    screen->backgroundColor = nui::OpaqueWhite;
    screen->layoutKind = nui::LayoutKind::HorizontalGrid;
    for (int i = 0; i < widgets; ++i) {
        const auto widget = std::make_shared<Widget>();
        widget->widthMode = widget->heightMode = nui::Px;
        widget->widthValue = widget->heightValue = 20;
        widget->backgroundColor = 0xFF808080U + static_cast<nui::Color>(i % 64);
        widget->topColor = nui::OpaqueBlack;
        screen->add(widget);
    }
    screen->openWindow();
    nui::engine().addScreen(screen);
    nui::engine().draw(false);
    return screen;
}

void measure_frames()
{
    constexpr int widgets = 1000;
    const auto screen = open_page(widgets);
    nui::engine().draw(true);
    const std::size_t allocations = bench::allocation_count();
    const std::uint64_t primitives = nui::drawnPrimitives();
    nui::engine().draw(true);
    const std::uint64_t drawn = nui::drawnPrimitives() - primitives;
    const std::size_t allocated = bench::allocation_count() - allocations;
    const double time = microseconds([] { nui::engine().draw(true); });
    std::printf("a frame of %d visible widgets:       %10.1f us, %6.3f us each\n", widgets, time,
                time / widgets);
    std::printf("primitives drawn for each widget:      %10.2f\n",
                static_cast<double>(drawn) / widgets);
    std::printf("allocations in a frame:                %10zu  (aim: 0)\n", allocated);
    nui::engine().draw(false);
    const double unchanged = microseconds([] { nui::engine().draw(false); });
    std::printf("a frame that the window shows already: %10.1f us, %5.3f of a drawn one\n",
                unchanged, unchanged / time);

    nui::TouchEvent touched(nui::touch::Move);
    touched.x = 795;
    touched.y = 10;
    const double near = microseconds([&] {
        WidgetPtr deepest;
        WidgetPtr captured;
        screen->hitTest(touched, deepest, captured, 0);
    });
    std::printf("hit test among %d siblings:          %10.2f us\n", widgets, near);
    nui::engine().closeScreen(screen);

    const tree t(10000);
    t.lay_out();
    t.root->draw({0, 0}, 0);
    touched.x = touched.y = 3;
    std::printf("hit test in a tree of %d:           %10.2f us\n", t.count, microseconds([&] {
                    WidgetPtr deepest;
                    WidgetPtr captured;
                    t.root->hitTest(touched, deepest, captured, 0);
                }));
}

double time_load(int widgets)
{
    const nrd::misc::path folder = "C:\\vs5_bench";
    nrd::misc::create_directories(folder);
    const nrd::misc::path file = folder / "layout.json";
    std::ofstream out = nrd::misc::open_for_writing(file);
    out << R"({"constants": {"ink": "#203040"}, "widgets": [{"class": "Screen", "id": "s", "children": [)";
    for (int i = 0; i < widgets; ++i) {
        out << (i == 0 ? "" : ",\n") << R"({"class": "Widget", "name": "w)" << i
            << R"(", "width": "50%", "height": 20, "left": 4, "backgroundColor": "ink", "borderColor": "#808080"})";
    }
    out << "]}]}\n";
    out.close();
    const std::string path = nrd::misc::error_path_text(nrd::misc::to_host(file));
    return microseconds([&] { nui::LayoutLoader(path).load(); });
}

void measure_loading()
{
    const double small = time_load(1000);
    const double large = time_load(10000);
    std::printf("loading a file of 1,000 widgets:       %10.1f us\n", small);
    std::printf("loading a file of 10,000 widgets:      %10.1f us, %6.3f us each\n", large,
                large / 10000);
    std::printf("the second / 10 times the first:       %10.2f  (linear: 1)\n",
                large / (10 * small));
}

} // namespace

int main(int /*argc*/, char* /*argv*/[])
{
    SDL_Init(SDL_INIT_VIDEO);
    nui::Engine::start("");
    measure_layout();
    measure_depth();
    measure_frames();
    measure_loading();
    nui::Engine::close();
    SDL_Quit();
    return 0;
}
