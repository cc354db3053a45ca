#include "streams/stream_observers.h"

namespace nrd::streams {

void stream_observer_os::notify(const char*, std::size_t, const char* text, std::size_t text_length)
{
    out_.write(text, static_cast<std::streamsize>(text_length));
    out_.put(out_.widen('\n'));
    out_.flush();
    out_.flush();
}

stream_observer_multiconsole::stream_observer_multiconsole(const std::string& title)
    : document_(multiconsole::console_document::open(title))
{
}

void stream_observer_multiconsole::notify(const char*, std::size_t, const char* text,
                                          std::size_t text_length)
{
    // Byte by byte: the console shows what stands in the stream, not what it may mean in UTF-8.
    std::u16string wide;
    wide.reserve(text_length);
    for (std::size_t i = 0; i < text_length; ++i) {
        wide += static_cast<char16_t>(static_cast<unsigned char>(text[i]));
    }
    document_->print(wide);
}

} // namespace nrd::streams
