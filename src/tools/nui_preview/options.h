#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace nrd::tools::preview {

struct window_size {
    int width = 0; ///< pixels
    int height = 0;

    bool operator==(const window_size&) const = default;
};

/// What the layout's author asked for. Names of files are UTF-8 and count from the current folder.
struct preview_options {
    std::string file;
    std::optional<std::string> resources; ///< the toolkit's base path
    std::string lang = "en";
    std::optional<window_size> size;
    std::optional<std::string> picture;
    std::optional<std::string> tree;
    std::optional<std::string> script;
    bool help = false;

    /// A run that writes or plays something ends by itself; any other shows a window.
    [[nodiscard]] bool has_output() const { return picture || tree || script; }
};

/// A command line that is not understood; the text is a sentence about it.
struct wrong_options : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// `args` are UTF-8, the program's name first. Throws wrong_options.
preview_options parse_options(const std::vector<std::string>& args);

extern const char* const usage_text;

} // namespace nrd::tools::preview
