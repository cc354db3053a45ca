#include "support/registry_text.h"

#include "misc/processes.h"
#include "misc/registry.h"

#include <algorithm>

namespace nrd::test {

namespace {

void append(std::string& text, const misc::text32& key, const misc::text32& shown)
{
    std::vector<misc::text32> names = misc::value_names(key);
    std::sort(names.begin(), names.end());
    for (const misc::text32& name : names) {
        text += name.empty() ? "(default)" : misc::to_utf8(name);
        text += " = " + misc::to_utf8(misc::read_value(key, name)) + "\n";
    }
    for (const misc::text32& name : misc::subkey_names(key)) {
        const misc::text32 below = shown.empty() ? name : shown + U"\\" + name;
        text += "[" + misc::to_utf8(below) + "]\n";
        append(text, key + U"\\" + name, below);
    }
}

} // namespace

std::string registry_text(const misc::text32& key)
{
    std::string text;
    append(text, key, {});
    return text;
}

scratch_key::scratch_key()
{
    static int count = 0;
    const std::string name =
        std::to_string(misc::current_process_id()) + "-" + std::to_string(++count);
    path_ = U"HKEY_LOCAL_MACHINE\\SOFTWARE\\VS5 test " + misc::to_text32(name);
}

scratch_key::~scratch_key()
{
    misc::delete_key(path_);
}

misc::text32 scratch_key::operator/(const misc::text32& below) const
{
    return path_ + U"\\" + below;
}

} // namespace nrd::test
