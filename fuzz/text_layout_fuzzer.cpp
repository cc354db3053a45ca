// The first bytes of the input are the width of a box, a line limit and alignments, the rest a
// text. Wherever its characters are put, a point there finds them, and no character is lost.

#include "check.h"
#include "misc/text.h"
#include "nui/text/ftgl_font.h"

#include <SDL2/SDL_filesystem.h>
#include <SDL2/SDL_stdinc.h>
#include <memory>
#include <string>

namespace {

nui::FtglFont& font()
{
    static auto* const opened = [] {
        const std::unique_ptr<char, decltype(&SDL_free)> folder(SDL_GetBasePath(), SDL_free);
        const std::string fonts = std::string(folder.get()) + "fonts/";
        auto* const made = new nui::FtglFont(fonts + "NotoSans-Regular.ttf");
        made->setStandIns({fonts + "Nanum Gothic.ttf"});
        check(made->getLineHeight(12, 1) > 0, "the font is there");
        return made;
    }();
    return *opened;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    constexpr std::size_t head = 3;
    if (size < head) {
        return 0;
    }
    const std::string text(reinterpret_cast<const char*>(data) + head, size - head);
    nui::TextLayout layout{.text = text, .size = 12};
    layout.width = static_cast<float>(data[0]) * 2;
    layout.height = 100;
    layout.maxLines = data[1];
    layout.alignment = static_cast<nui::TextAlignment>(data[2] % 3);
    layout.verticalAlignment = static_cast<nui::VerticalTextAlignment>(data[2] / 3 % 3);
    layout.wordWrap = data[2] < 128;

    const auto length = static_cast<int>(nrd::misc::to_text32(text).size());
    const nui::TextSize measured = font().measureText(layout);
    check(measured.isValid() || layout.width == 0 || layout.maxLines > 0,
          "what is not cut has a layout");
    for (const float y : {-50.0F, 0.0F, 20.0F, 50.0F, 1000.0F}) {
        for (const float x : {-50.0F, 0.0F, 33.3F, 1e6F}) {
            const int index = font().indexAtPoint(layout, {x, y});
            check(index >= -1 && (layout.maxLines > 0 || index <= length),
                  "a point finds the text");
            check(index >= 0 || text.empty() || !measured.isValid(),
                  "a text has a nearest character");
        }
    }
    int last = 0;
    for (float x = 0; x < 100; x += 10) {
        const int index = font().indexAtX(text, 12, x);
        check(index >= last && index <= length, "characters follow each other on a line");
        last = index;
    }
    check(font().indexAtX(text, 12, 1e9F) == length, "all of the text is on the line");
    return 0;
}
