#include "tools/setup_unattended/options.h"

#include <algorithm>
#include <array>

namespace nrd::tools {

const char* const usage_text =
    "setup_unattended [options]: installs the package that it lies in, without a window.\n"
    "\n"
    "  --path TEXT     install folder, in place of the package's own\n"
    "  --plan          change nothing; print what an installation would do\n"
    "  --json FILE     write the plan, or the outcome, for machines\n"
    "  --quiet         print failures only\n"
    "  --desktop PATH  folder for shortcuts on the desktop\n"
    "  --prefs PATH    folder for settings and logs\n"
    "  --lang CODE     language of the texts\n"
    "  --help          this text\n"
    "\n"
    "Exit status: 0 installed (or plan made), 1 start-up or configuration failed, 2 wrong "
    "options,\n"
    "3 blocked by running programs, 4 installation failed, 5 install folder refused.\n";

namespace {

constexpr std::array own_options = {"--path", "--plan", "--json", "--quiet", "--help"};
constexpr std::array startup_options = {"--desktop", "--prefs", "--lang"};

template <class Names> bool contains(const Names& names, const std::string& word)
{
    return std::find(names.begin(), names.end(), word) != names.end();
}

const std::string& value_of(const std::vector<std::string>& args, std::size_t& i)
{
    const std::string& option = args[i];
    if (++i >= args.size()) {
        throw wrong_options("The option " + option + " needs a value, see --help");
    }
    if (contains(own_options, args[i]) || contains(startup_options, args[i])) {
        throw wrong_options("The option " + option + " needs a value, and " + args[i] +
                            " is an option itself");
    }
    return args[i];
}

} // namespace

unattended_options parse_options(const std::vector<std::string>& args)
{
    unattended_options options;
    for (std::size_t i = 1; i < args.size(); ++i) {
        const std::string& word = args[i];
        if (word == "--path") {
            options.path = misc::to_text32(std::string_view(value_of(args, i)));
        } else if (word == "--json") {
            options.json_file = value_of(args, i);
        } else if (word == "--plan") {
            options.plan = true;
        } else if (word == "--quiet") {
            options.quiet = true;
        } else if (word == "--help") {
            options.help = true;
        } else if (contains(startup_options, word)) {
            value_of(args, i);
        } else {
            throw wrong_options("The option " + word + " is not known, see --help");
        }
    }
    return options;
}

} // namespace nrd::tools
