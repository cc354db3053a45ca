#include "tools/nui_preview/options.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

namespace nrd::tools::preview {

const char* const usage_text =
    "nui_preview FILE [options]: opens a layout file.\n"
    "\n"
    "  --resources DIR  folder that the names of includes, images and texts count from; without\n"
    "                   it the folder \"resources\" that FILE lies in, or the folder of FILE\n"
    "  --lang CODE      language of the texts; without it \"en\"\n"
    "  --size WxH       size of the window in pixels, in place of the file's own\n"
    "  --png FILE       write a picture of the window\n"
    "  --tree FILE      write the tree of widgets as JSON\n"
    "  --play SCRIPT    play a script first\n"
    "  --help           this text\n"
    "\n"
    "Without --png, --tree and --play the window stays open, and the file is read again whenever\n"
    "it or one of its includes changes.\n"
    "\n"
    "Commands of a script, one a line; lines that begin with \"#\" are remarks:\n"
    "  move X Y   press [left|right|middle]   release [left|right|middle]   click NAME   wheel N\n"
    "  type TEXT   key NAME [ctrl] [shift] [alt]   focus NAME   show PAGE   wait SECONDS\n"
    "  tree FILE   png FILE   quit\n"
    "\n"
    "Exit status: 0 done, 1 a fault in the layout file or the script, 2 wrong options.\n"
    "What there is of a faulty layout file is written all the same.\n";

namespace {

constexpr int greatest_side = 16384;
constexpr std::array names = {"--resources", "--lang", "--size", "--png",
                              "--tree",      "--play", "--help"};

const std::string& value_of(const std::vector<std::string>& args, std::size_t& i)
{
    const std::string& option = args[i];
    if (++i >= args.size()) {
        throw wrong_options("The option " + option + " needs a value, see --help.");
    }
    if (std::find(names.begin(), names.end(), args[i]) != names.end()) {
        throw wrong_options("The option " + option + " needs a value, and " + args[i] +
                            " is an option itself.");
    }
    if (args[i].empty()) {
        throw wrong_options("The option " + option + " needs a value, and the one given is empty.");
    }
    return args[i];
}

bool read_side(std::string_view text, int& side)
{
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, side);
    return error == std::errc() && stop == end && side > 0 && side <= greatest_side;
}

window_size size_of(const std::string& text)
{
    window_size size;
    const std::string_view whole = text;
    const std::size_t cross = whole.find('x');
    if (cross == std::string_view::npos || !read_side(whole.substr(0, cross), size.width) ||
        !read_side(whole.substr(cross + 1), size.height)) {
        throw wrong_options("The size " + text + " is not a width and a height, as in 800x600.");
    }
    return size;
}

/// The text that an option with a plain value fills; null for other words.
std::optional<std::string>* plain_value(preview_options& options, const std::string& word)
{
    if (word == "--resources") {
        return &options.resources;
    }
    if (word == "--png") {
        return &options.picture;
    }
    if (word == "--tree") {
        return &options.tree;
    }
    return word == "--play" ? &options.script : nullptr;
}

/// Takes one word, with its value if it is an option that has one.
void read_word(preview_options& options, const std::vector<std::string>& args, std::size_t& i)
{
    const std::string& word = args[i];
    if (std::optional<std::string>* const value = plain_value(options, word)) {
        *value = value_of(args, i);
    } else if (word == "--lang") {
        options.lang = value_of(args, i);
    } else if (word == "--size") {
        options.size = size_of(value_of(args, i));
    } else if (word == "--help") {
        options.help = true;
    } else if (word.starts_with("--")) {
        throw wrong_options("The option " + word + " is not known, see --help.");
    } else if (!options.file.empty()) {
        throw wrong_options("There are two layout files, " + options.file + " and " + word +
                            ", and one at a time can be shown.");
    } else {
        options.file = word;
    }
}

} // namespace

preview_options parse_options(const std::vector<std::string>& args)
{
    preview_options options;
    for (std::size_t i = 1; i < args.size(); ++i) {
        read_word(options, args, i);
    }
    if (options.file.empty() && !options.help) {
        throw wrong_options("There is no layout file to show, see --help.");
    }
    return options;
}

} // namespace nrd::tools::preview
