// The time from a program's start to its first drawn frame: the toolkit's against that of a bare
// program that opens the same window. Starts itself as one and the other in turn.

#include "nui/engine/engine.h"
#include "nui/widgets/screen.h"
#include "stopwatch.h"

#include <GL/glew.h>
#include <SDL.h>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr int width = 320;
constexpr int height = 200;

/// What any program must do that shows a coloured window.
void show_bare()
{
    SDL_Init(SDL_INIT_VIDEO);
    SDL_GL_SetAttribute(SDL_GL_MULTISAMPLEBUFFERS, 1);
    SDL_GL_SetAttribute(SDL_GL_MULTISAMPLESAMPLES, 4);
    SDL_GL_SetAttribute(SDL_GL_DEPTH_SIZE, 24);
    SDL_Window* const window =
        SDL_CreateWindow("first frame", SDL_WINDOWPOS_UNDEFINED, SDL_WINDOWPOS_UNDEFINED, width,
                         height, SDL_WINDOW_OPENGL);
    const SDL_GLContext context = SDL_GL_CreateContext(window);
    glClearColor(0.5F, 0.5F, 0.5F, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    SDL_GL_SwapWindow(window);
    glFinish();
    SDL_GL_DeleteContext(context);
    SDL_DestroyWindow(window);
    SDL_Quit();
}

void show_toolkit()
{
    SDL_Init(SDL_INIT_VIDEO);
    nui::Engine::start("");
    const auto screen = std::make_shared<nui::Screen>();
    screen->setWidth({width, nui::Px});
    screen->setHeight({height, nui::Px});
    screen->backgroundColor = 0xFF808080U;
    screen->openWindow();
    nui::engine().addScreen(screen);
    nui::engine().step();
    nui::engine().draw(false);
    glFinish();
    nui::Engine::close();
    SDL_Quit();
}

/// Milliseconds of a whole run, so that neither side can put work off until after the frame.
double time_of(const std::string& program, const char* mode)
{
    return bench::seconds([&] {
               if (std::system(('"' + program + "\" " + mode).c_str()) != 0)
                   std::printf("%s could not be run\n", mode);
           }) *
           1e3;
}

} // namespace

int main(int argc, char* argv[])
{
    const std::string_view mode = argc > 1 ? argv[1] : "";
    if (mode == "bare") {
        show_bare();
        return 0;
    }
    if (mode == "toolkit") {
        show_toolkit();
        return 0;
    }
    constexpr int rounds = 11;
    std::vector<double> bare;
    std::vector<double> toolkit;
    for (int i = 0; i < rounds; ++i) {
        bare.push_back(time_of(argv[0], "bare"));
        toolkit.push_back(time_of(argv[0], "toolkit"));
    }
    std::printf("bare program, start to end with a frame:   %8.1f ms\n", bench::median(bare));
    std::printf("toolkit, start to end with a frame:        %8.1f ms\n", bench::median(toolkit));
    std::printf("the second / the first:                    %8.2f  (aim: 1.3 or less)\n",
                bench::median(toolkit) / bench::median(bare));
    return 0;
}
