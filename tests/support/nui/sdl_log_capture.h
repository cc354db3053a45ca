#pragma once

#include <SDL2/SDL_log.h>
#include <string>

namespace nui::test {

/// Collects what is written to SDL's log while it lives, each line with a line feed.
class SdlLogCapture {
public:
    SdlLogCapture();
    ~SdlLogCapture();
    SdlLogCapture(const SdlLogCapture&) = delete;
    SdlLogCapture& operator=(const SdlLogCapture&) = delete;

    [[nodiscard]] const std::string& text() const { return text_; }

private:
    static void append(void* self, int category, SDL_LogPriority priority, const char* message);

    SDL_LogOutputFunction before_ = nullptr;
    void* beforeUser_ = nullptr;
    std::string text_;
};

} // namespace nui::test
