#pragma once

#include "misc/text.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace nrd::tools {

/// What the administrator asked for. "--desktop", "--prefs" and "--lang" are checked here and take
/// effect in the start-up.
struct unattended_options {
    std::optional<misc::text32> path;
    std::optional<std::string> json_file; ///< UTF-8, a path of the host
    bool plan = false;
    bool quiet = false;
    bool help = false;
};

/// A command line that is not understood; the text is a sentence about it, without its full stop.
struct wrong_options : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// `args` are UTF-8, the program's name first. Throws wrong_options for an unknown word and for an
/// option that lacks its value; the name of an option is nobody's value.
unattended_options parse_options(const std::vector<std::string>& args);

extern const char* const usage_text;

} // namespace nrd::tools
