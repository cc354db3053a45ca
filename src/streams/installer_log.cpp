#include "streams/installer_log.h"

#include "misc/text.h"
#include "streams/streams.h"

#include <vector>

void installer_log(std::string_view text, const std::source_location& where)
{
    std::string message = where.file_name();
    message += ':';
    message += std::to_string(where.line());
    message += ": ";
    message += text;
    const std::string line = nrd::streams::shape_log_line(message);
    nrd::streams::stream_write("installer", line.data(), line.size());
}

namespace nrd::streams {

std::string shape_log_line(std::string_view message)
{
    std::vector<std::string> segments = misc::split(message, ':');
    if (segments.size() >= 2) {
        const std::vector<std::string> names =
            misc::split(misc::replace_char(segments.front(), '\\', '/'), '/');
        segments.front() = names.empty() ? std::string() : names.back();
    }
    std::string line;
    line.reserve(message.size() + 2);
    for (const std::string& segment : segments) {
        line += segment;
        line += ':';
    }
    return line + '\n';
}

void toolkit_log(std::string_view text)
{
    stream_write("installer", text.data(), text.size());
}

} // namespace nrd::streams
