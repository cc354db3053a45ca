#include "inst/installation/spec.h"

#include "streams/installer_log.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>
#include <unordered_map>

namespace nrd::installation {

using misc::to_text32;
using misc::to_utf8;

namespace {

template <class Vars> auto position_of(Vars& vars, const text32& name)
{
    return std::find_if(vars.begin(), vars.end(),
                        [&name](const var& each) { return each.name == name; });
}

[[noreturn]] void throw_not_found(const text32& name)
{
    installer_log("Var not found. Throwing.");
    throw std::invalid_argument("Var not found: " + to_utf8(name));
}

template <class Vars> auto& find_in(Vars& vars, const text32& name)
{
    const auto found = position_of(vars, name);
    if (found == vars.end()) {
        throw_not_found(name);
    }
    return *found;
}

/// Finds the variables of one text. Texts with many get an index, for else the time would grow with
/// the number of variables times that of placeholders.
class var_finder {
public:
    explicit var_finder(const std::vector<var>& vars) : vars_(vars) {}

    /// The first of that name, or null.
    const var* find(const text32& name)
    {
        installer_log("Finding var: " + to_utf8(name));
        const var* const found = ++asked_ > worth_an_index ? find_in_index(name) : find_first(name);
        installer_log((found != nullptr ? "Found " : "Can't find ") + to_utf8(name));
        return found;
    }

private:
    static constexpr int worth_an_index = 16;

    const var* find_first(const text32& name) const
    {
        const auto found = position_of(vars_, name);
        return found == vars_.end() ? nullptr : &*found;
    }

    const var* find_in_index(const text32& name)
    {
        if (index_.empty()) {
            index_.reserve(vars_.size());
            for (const var& each : vars_) {
                index_.emplace(each.name, &each);
            }
        }
        const auto found = index_.find(name);
        return found == index_.end() ? nullptr : found->second;
    }

    const std::vector<var>& vars_;
    std::unordered_map<std::u32string_view, const var*> index_;
    int asked_ = 0;
};

} // namespace

fileset::fileset(const text32& in, const text32& out, text32 create_folders)
    : in_(normalise_separators(in)), out_(normalise_separators(out)),
      create_folders_(std::move(create_folders))
{
}

const var* spec::look_up(const text32& name) const
{
    return var_finder(vars).find(name);
}

bool spec::has_var(const text32& name) const
{
    return look_up(name) != nullptr;
}

var& spec::find_var(const text32& name)
{
    return find_in(vars, name);
}

const var& spec::find_var(const text32& name) const
{
    return find_in(vars, name);
}

void spec::add_var(const var& added)
{
    if (!has_var(added.name)) {
        installer_log("Adding var: " + to_utf8(added.name) + to_utf8(added.value));
        vars.push_back(added);
    }
}

void spec::add_vars(const std::vector<var>& added)
{
    installer_log("Adding vars.");
    for (const var& each : added) {
        add_var(each);
    }
}

void spec::set_var(const text32& name, const text32& value)
{
    var& found = find_var(name);
    installer_log("Setting var: " + to_utf8(name) + to_utf8(found.value) + to_utf8(value));
    found.value = value;
}

void spec::ensure_var(const text32& name, const text32& value)
{
    installer_log("Ensuring var: " + to_utf8(name) + to_utf8(value));
    if (has_var(name)) {
        set_var(name, value);
    } else {
        add_var({name, value});
    }
}

text32 spec::var_value(const text32& name) const
{
    return expand(find_var(name).value);
}

text32 spec::expand(std::u32string_view text) const
{
    var_finder finder(vars);
    const auto lookup = [&finder](const text32& name, const text32& fallback) {
        const var* const found = finder.find(name);
        return found != nullptr ? found->value : fallback;
    };
    return normalise_separators(substitute_vars(text, lookup));
}

text32 spec::to_text() const
{
    text32 text = app_name(); // the first heading follows it on the same line
    text += U"Vars:\n";
    for (const var& each : vars) {
        text += U"ID: " + each.name + U", Val: " + each.value + U"\n";
    }
    text += U"Packages:\n";
    for (const package& each : packages) {
        text += U"Name: " + to_text32(each.name) + U", OS: " + to_text32(each.os) + U", Bits: " +
                to_text32(each.bits) + U"\n";
    }
    text += U"Reg Keys:\n";
    for (const reg_key& each : reg_keys) {
        text += U"Name: " + to_text32(each.name) + U", Path: " + each.path + U", Data: " +
                each.data + U"\n";
    }
    text += U"Paths:\n";
    for (const path_entry& each : path_entries) {
        text += U"Path: " + each.path + U", App: " + each.app_code + U"\n";
    }
    text += U"Shortcuts:\n";
    for (const shortcut& each : shortcuts) {
        text += U"Location: " + each.location + U", Destination: " + each.destination + U", OS: " +
                each.os + U"\n";
    }
    text += U"Processes:\n";
    for (const block_process& each : block_processes) {
        text += U"Name: " + to_text32(each.name) + U", OS: " + to_text32(each.os) + U"\n";
    }
    return text + U"Working directory:\n" + to_text32(working_directory);
}

} // namespace nrd::installation
