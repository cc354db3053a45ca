#include "misc/command_line.h"

namespace nrd::misc {

// Never destroyed: a worker thread may still ask for a folder while the process ends.

std::optional<path>& desktop_override()
{
    static auto* const value = new std::optional<path>;
    return *value;
}

std::optional<path>& prefs_override()
{
    static auto* const value = new std::optional<path>;
    return *value;
}

std::optional<std::string>& lang_override()
{
    static auto* const value = new std::optional<std::string>;
    return *value;
}

void parse_command_line(const std::vector<std::string>& args)
{
    for (std::size_t i = 0; i + 1 < args.size(); ++i) {
        const std::string& value = args[i + 1];
        if (args[i] == "--desktop") {
            desktop_override() = to_path(std::string_view(value));
        }
        if (args[i] == "--prefs") {
            prefs_override() = to_path(std::string_view(value));
        }
        if (args[i] == "--lang") {
            lang_override() = value;
        }
    }
}

} // namespace nrd::misc
