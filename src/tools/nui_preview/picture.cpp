#include "tools/nui_preview/picture.h"

#include "nui/draw/gl_context.h"
#include "nui/draw/surface.h"
#include "nui/engine/engine.h"
#include "nui/widgets/screen.h"
#include "tools/nui_preview/failure.h"

#include <GL/glew.h>
#include <SDL2/SDL_image.h>
#include <algorithm>
#include <vector>

namespace nrd::tools::preview {

namespace {

constexpr int bytes_per_pixel = 3;
constexpr GLsizei samples = 4; ///< as windows have them

/// A picture in place of the window that GL draws into, while it lives. Windows without a display
/// keep the size that they were made with, and covered ones need not have all their pixels.
class canvas {
public:
    canvas(int width, int height, GLsizei sample_count)
    {
        glGenFramebuffers(1, &framebuffer_);
        glGenRenderbuffers(1, &pixels_);
        glBindFramebuffer(GL_FRAMEBUFFER, framebuffer_);
        glBindRenderbuffer(GL_RENDERBUFFER, pixels_);
        glRenderbufferStorageMultisample(GL_RENDERBUFFER, sample_count, GL_RGBA8, width, height);
        glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER, pixels_);
    }
    canvas(const canvas&) = delete;
    canvas& operator=(const canvas&) = delete;
    ~canvas()
    {
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
        glDeleteRenderbuffers(1, &pixels_);
        glDeleteFramebuffers(1, &framebuffer_);
    }

    [[nodiscard]] static bool is_complete()
    {
        return glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
    }

    [[nodiscard]] GLuint name() const { return framebuffer_; }

private:
    GLuint framebuffer_ = 0;
    GLuint pixels_ = 0;
};

void draw_frame(nui::Screen& screen)
{
    glDisable(GL_SCISSOR_TEST);
    // A window that leaves pixels undrawn shows anything there; pictures are to be the same.
    glClearColor(0, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    nui::set2DProjection();
    nui::setViewport();
    nui::resetFrameState();
    screen.draw({0, 0}, 1);
    nui::resetFrameState();
}

/// Rows from the bottom, as GL has them.
std::vector<unsigned char> read_pixels(int width, int height)
{
    std::vector<unsigned char> pixels(static_cast<std::size_t>(width) *
                                      static_cast<std::size_t>(height) * bytes_per_pixel);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, width, height, GL_RGB, GL_UNSIGNED_BYTE, pixels.data());
    return pixels;
}

void turn_upside_down(std::vector<unsigned char>& pixels, int width)
{
    const std::ptrdiff_t row = static_cast<std::ptrdiff_t>(width) * bytes_per_pixel;
    for (auto top = pixels.begin(), bottom = pixels.end(); bottom - top >= 2 * row; top += row) {
        bottom -= row;
        std::swap_ranges(top, top + row, bottom);
    }
}

std::vector<unsigned char> pixels_of(nui::Screen& screen)
{
    const int width = screen.window->drawableWidth;
    const int height = screen.window->drawableHeight;
    const canvas plain(width, height, 0);
    const canvas drawn(width, height, samples);
    if (!canvas::is_complete()) {
        throw failure("The OpenGL of this system cannot draw outside of windows.");
    }
    draw_frame(screen);
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, plain.name());
    glBlitFramebuffer(0, 0, width, height, 0, 0, width, height, GL_COLOR_BUFFER_BIT, GL_NEAREST);
    glBindFramebuffer(GL_FRAMEBUFFER, plain.name());
    std::vector<unsigned char> pixels = read_pixels(width, height);
    turn_upside_down(pixels, width);
    return pixels;
}

} // namespace

void write_picture(const nui::ScreenPtr& screen, const std::string& file)
{
    if (!screen->isOpen()) {
        throw failure("The picture " + file + " cannot be taken, as the window is closed.");
    }
    nui::engine().screens.makeCurrent(screen);
    if (glGenFramebuffers == nullptr || glBlitFramebuffer == nullptr) {
        throw failure("The OpenGL of this system is too old for pictures.");
    }
    std::vector<unsigned char> pixels = pixels_of(*screen);
    const int width = screen->window->drawableWidth;
    const int height = screen->window->drawableHeight;
    const nui::SurfacePtr surface(
        SDL_CreateRGBSurfaceWithFormatFrom(pixels.data(), width, height, 8 * bytes_per_pixel,
                                           width * bytes_per_pixel, SDL_PIXELFORMAT_RGB24));
    SDL_RWops* const out = surface ? SDL_RWFromFile(file.c_str(), "wb") : nullptr;
    const bool saved = out != nullptr && IMG_SavePNG_RW(surface.get(), out, 0) == 0;
    // What a full disk refuses shows only when the file is closed.
    if (out == nullptr || SDL_RWclose(out) != 0 || !saved) {
        throw failure("The picture " + file + " cannot be written: " + SDL_GetError() + ".");
    }
}

} // namespace nrd::tools::preview
