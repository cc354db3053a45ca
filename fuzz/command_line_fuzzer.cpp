// The input is a command line, one word a line.

#include "check.h"
#include "misc/command_line.h"
#include "scratch_machine.h"
#include "tools/setup_unattended/options.h"

#include <algorithm>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    scratch_machine();
    const std::string input(reinterpret_cast<const char*>(data), size);
    const std::vector<std::string> words = nrd::misc::split(input, '\n');
    nrd::misc::lang_override().reset();
    nrd::misc::parse_command_line(words);
    const auto& language = nrd::misc::lang_override();
    check(!language || std::find(words.begin(), words.end(), *language) != words.end(),
          "the language is one of the words");
    check(words.size() < 2 || words[words.size() - 2] != "--lang" || language == words.back(),
          "the last option wins");
    try {
        const auto options = nrd::tools::parse_options(words);
        check(!options.plan || std::find(words.begin(), words.end(), "--plan") != words.end(),
              "a plan is made only if it is asked for");
    } catch (const nrd::tools::wrong_options& error) {
        check(*error.what() != '\0', "a wrong command line is explained");
    }
    return 0;
}
