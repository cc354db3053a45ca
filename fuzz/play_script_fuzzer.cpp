// The input is a play script.

#include "check.h"
#include "tools/nui_preview/play_script.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

using namespace nrd::tools::preview;

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const std::string_view script(reinterpret_cast<const char*>(data), size);
    const auto lines = std::count(script.begin(), script.end(), '\n') + 1;
    try {
        int last = 0;
        for (const play_command& command : parse_play_script(script)) {
            check(command.line > last && command.line <= lines, "commands keep their lines");
            last = command.line;
            if (const auto* const wait = std::get_if<wait_for>(&command.action)) {
                check(wait->seconds >= 0, "nobody waits backwards");
            }
            if (const auto* const hit = std::get_if<hit_key>(&command.action)) {
                check(hit->key != 0, "every key is known");
            }
        }
    } catch (const script_error& error) {
        check(error.line >= 1 && error.line <= lines, "a fault lies in the script");
        check(*error.what() != '\0', "a fault is explained");
    }
    return 0;
}
