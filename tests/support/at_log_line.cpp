#include "support/at_log_line.h"

#include "streams/streams.h"

#include <string_view>
#include <utility>

namespace nrd::test {

at_log_line::at_log_line(std::string words, std::function<void()> happening)
    : words_(std::move(words)), happening_(std::move(happening))
{
    streams::find_stream("installer").attach(this);
}

at_log_line::~at_log_line()
{
    streams::find_stream("installer").detach(this);
}

void at_log_line::notify(const char*, std::size_t, const char* text, std::size_t text_length)
{
    const std::string_view line(text, text_length);
    if (happening_ && line.find(words_) != line.npos) {
        std::exchange(happening_, nullptr)();
    }
}

} // namespace nrd::test
