#include "support/nui/sdl_log_capture.h"

namespace nui::test {

SdlLogCapture::SdlLogCapture()
{
    SDL_LogGetOutputFunction(&before_, &beforeUser_);
    SDL_LogSetOutputFunction(append, this);
}

SdlLogCapture::~SdlLogCapture()
{
    SDL_LogSetOutputFunction(before_, beforeUser_);
}

void SdlLogCapture::append(void* self, int /*category*/, SDL_LogPriority /*priority*/,
                           const char* message)
{
    static_cast<SdlLogCapture*>(self)->text_.append(message).append("\n");
}

} // namespace nui::test
