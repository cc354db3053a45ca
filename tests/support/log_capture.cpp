#include "support/log_capture.h"

#include "streams/streams.h"

#include <algorithm>

namespace nrd::test {

namespace {

std::string without_position(std::string_view line)
{
    const std::size_t name_end = line.find(':');
    const std::size_t number_end = line.find(": ", name_end == line.npos ? name_end : name_end + 1);
    if (number_end == line.npos) {
        return std::string(line);
    }
    const std::string_view number = line.substr(name_end + 1, number_end - name_end - 1);
    const bool is_position = !number.empty() && number.find_first_not_of("0123456789") == line.npos;
    return std::string(is_position ? line.substr(number_end + 2) : line);
}

} // namespace

log_capture::log_capture()
{
    streams::find_stream("installer").attach(this);
}

log_capture::~log_capture()
{
    streams::find_stream("installer").detach(this);
}

void log_capture::notify(const char*, std::size_t, const char* text, std::size_t text_length)
{
    std::string_view line(text, text_length);
    for (const char end : {'\n', ':'}) {
        if (line.ends_with(end)) {
            line.remove_suffix(1);
        }
    }
    const std::scoped_lock lock(writing_);
    lines_.push_back(without_position(line));
}

std::string log_capture::text() const
{
    std::string all;
    for (const std::string& line : lines_) {
        all += line + "\n";
    }
    return all;
}

std::ptrdiff_t log_capture::count(std::string_view line) const
{
    return std::count(lines_.begin(), lines_.end(), line);
}

} // namespace nrd::test
