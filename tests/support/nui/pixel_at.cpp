#include "support/nui/pixel_at.h"

#include "nui/draw/gl_context.h"
#include "nui/engine/window_handle.h"

#include <GL/glew.h>
#include <array>
#include <cstdio>

namespace nui::test {

std::string pixelAt(int x, int y)
{
    const WindowHandle* const window = currentWindow();
    if (window == nullptr || x < 0 || y < 0 || x >= window->drawableWidth ||
        y >= window->drawableHeight)
        return "outside";
    std::array<GLubyte, 4> pixel = {};
    glReadPixels(x, window->drawableHeight - 1 - y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel.data());
    // The alpha byte means nothing on a window, and not every one has it.
    std::array<char, 7> text = {};
    std::snprintf(text.data(), text.size(), "%02x%02x%02x", unsigned{pixel[0]}, unsigned{pixel[1]},
                  unsigned{pixel[2]});
    return text.data();
}

std::string pixelRows(int x, int y, int width, int height, const std::string& letters)
{
    std::string rows;
    for (int row = y; row < y + height; ++row) {
        for (int column = x; column < x + width; ++column) {
            const std::size_t found = letters.find(pixelAt(column, row) + "=");
            rows += found == std::string::npos ? '?' : letters.at(found + 7);
        }
        rows += '\n';
    }
    return rows;
}

} // namespace nui::test
