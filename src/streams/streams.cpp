#include "streams/streams.h"

#include "streams/stream_settings.h"

#include <map>
#include <utility>

namespace nrd::streams {

namespace {

// Neither table is ever destroyed: a worker may still log while the process ends.

std::map<std::string, stream>& stream_table()
{
    static auto* const table = new std::map<std::string, stream>;
    return *table;
}

std::map<std::string, stream_settings>& stream_settings_table()
{
    static auto* const table = new std::map<std::string, stream_settings>;
    return *table;
}

stream& ensure_stream(const std::string& name)
{
    const auto [made, is_new] = stream_table().try_emplace(name, name);
    if (is_new) {
        const auto settings = stream_settings_table().try_emplace(name, made->second, name).first;
        settings->second.set_file(true);
    }
    return made->second;
}

stream_settings& ensure_settings(const std::string& name)
{
    ensure_stream(name);
    return stream_settings_table().at(name);
}

} // namespace

void stream_write(const std::string& name, const char* text, std::size_t length)
{
    ensure_stream(name).write(text, length);
}

void stream_write_lazy(const std::string& name, const stream::producer& make_text)
{
    ensure_stream(name).write_lazy(make_text);
}

void set_stream_console(const std::string& name, bool on)
{
    ensure_settings(name).set_console(on);
}

void set_stream_file(const std::string& name, bool on)
{
    ensure_settings(name).set_file(on);
}

void set_stream_muted(const std::string& name, std::int32_t value)
{
    ensure_settings(name).set_muted(value);
}

stream_subject& find_stream(const std::string& name)
{
    return ensure_stream(name);
}

std::optional<misc::path> stream_file_path(const std::string& name)
{
    const misc::path& file = ensure_settings(name).file_path();
    return file.empty() ? std::nullopt : std::optional(file);
}

} // namespace nrd::streams
