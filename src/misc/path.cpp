#include "misc/path.h"

namespace nrd::misc {

std::string to_utf8(const path& p)
{
    return to_utf8(replace_separators(to_text32(p)));
}

std::string describe_call(std::string_view name, std::initializer_list<path> paths)
{
    std::string text(name);
    char before = '(';
    for (const path& p : paths) {
        text += before;
        text += to_utf8(p);
        before = ',';
    }
    return text + ')';
}

} // namespace nrd::misc
