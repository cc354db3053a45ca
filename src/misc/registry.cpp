#include "misc/registry.h"

#include "misc/planned_changes.h"
#include "misc/registry_platform.h"
#include "misc/system_info.h"

#include <algorithm>
#include <utility>

namespace nrd::misc {

namespace platform = registry_platform;

namespace {

// A value is read into a buffer of this many UTF-16 units.
constexpr std::uint32_t value_capacity = 1024;

struct resolved_key {
    std::uint32_t root = platform::local_machine;
    text32 subkey;
};

resolved_key resolve(const text32& path)
{
    static const auto* const roots = new std::map<text32, std::uint32_t>{
        {U"HKEY_LOCAL_MACHINE", platform::local_machine},
        {U"HKEY_CLASSES_ROOT", platform::classes_root},
    };
    const std::size_t end = std::min(path.find(U'\\'), path.size());
    const auto named = roots->find(path.substr(0, end));
    resolved_key key{platform::local_machine, path};
    if (named != roots->end()) {
        key = {named->second, path.substr(std::min(end + 1, path.size()))};
    }
    key.subkey.erase(key.subkey.find_last_not_of(U'\\') + 1);
    return key;
}

/// One name for all spellings of a key, for the record of planned changes.
text32 full_path(const text32& path)
{
    const resolved_key key = resolve(path);
    const text32 root =
        key.root == platform::local_machine ? U"HKEY_LOCAL_MACHINE" : U"HKEY_CLASSES_ROOT";
    return key.subkey.empty() ? root : root + U"\\" + collapse_repeated(key.subkey, U'\\');
}

/// The flag that reaches the 64-bit view; joined to the rights of every access.
std::uint32_t view_flag()
{
    return is_64bit_windows() ? platform::key_wow64_64key : 0;
}

/// The one error rule: a denied access throws, and anything else is told by the result alone.
bool succeeded(platform::status status, const text32& path)
{
    if (status == platform::access_denied) {
        throw registry_error(registry_error::access_denied, path);
    }
    return status == platform::success;
}

platform::key open(const text32& path, std::uint32_t access)
{
    const resolved_key key = resolve(path);
    platform::key opened;
    succeeded(platform::open_key(key.root, to_utf16(key.subkey), access | view_flag(), opened),
              path);
    return opened;
}

using enum_call = platform::status (*)(const platform::key&, std::uint32_t, std::uint32_t,
                                       std::u16string&);

std::vector<text32> enumerate(const platform::key& key, std::uint32_t count, std::uint32_t longest,
                              enum_call next)
{
    std::vector<text32> names;
    for (std::uint32_t i = 0; i < count; ++i) {
        // The longest name is told for 8-bit text, so it may fall short of what the name needs.
        std::uint32_t capacity = longest + 1;
        std::u16string name;
        platform::status status = next(key, i, capacity, name);
        while (status == platform::more_data) {
            status = next(key, i, capacity *= 2, name);
        }
        if (status != platform::success) {
            break;
        }
        names.push_back(to_text32(name));
    }
    return names;
}

/// What the machine has in a key, the changes that are only planned left out.
std::vector<text32> real_names(const text32& path, std::uint32_t platform::key_info::*count,
                               std::uint32_t platform::key_info::*longest, enum_call next)
{
    const platform::key key = open(path, platform::key_read);
    platform::key_info info;
    if (key == nullptr || !succeeded(platform::query_info(key, info), path)) {
        return {};
    }
    return enumerate(key, info.*count, info.*longest, next);
}

/// For a planned change: throws as the real one would, which asks for the same rights. A key that
/// the machine does not have is the plan's own.
void expect_right(const text32& path, std::uint32_t access)
{
    open(path, access);
}

/// False for what the system takes for no key's path at all, so that none can be made there.
bool is_key_path(const text32& path)
{
    return !resolve(path).subkey.starts_with(U'\\');
}

/// The key above, and the last component.
std::pair<text32, text32> split_last(const text32& subkey)
{
    const std::size_t end = subkey.rfind(U'\\');
    if (end == subkey.npos) {
        return {text32(), subkey};
    }
    return {subkey.substr(0, end), subkey.substr(end + 1)};
}

/// The same for a key that is to be made: if it is not there, the nearest one above it decides.
void expect_right_to_create(const text32& path)
{
    const resolved_key key = resolve(path);
    std::uint32_t access = platform::key_set_value;
    for (text32 subkey = key.subkey;; subkey = split_last(subkey).first) {
        platform::key opened;
        if (succeeded(platform::open_key(key.root, to_utf16(subkey), access | view_flag(), opened),
                      path) ||
            subkey.empty()) {
            return;
        }
        access = platform::key_create_sub_key;
    }
}

/// The same for a key that is to go, with all that is below it.
void expect_right_to_delete(const text32& path)
{
    expect_right(path, platform::key_read | platform::key_delete);
    for (const text32& name : subkey_names(path)) {
        expect_right_to_delete(path + U"\\" + name);
    }
}

bool is_empty(const text32& path)
{
    return value_names(path).empty() && subkey_names(path).empty();
}

} // namespace

registry_error::registry_error(int code, const text32& path)
    : nrd::exception((code == access_denied ? "Access to the registry key is denied: "
                                            : "The registry key does not exist: ") +
                     to_utf8(path)),
      code_(code), path_(path)
{
}

bool key_exists(const text32& path)
{
    if (const planned_changes* plan = planned_changes::active()) {
        if (const auto planned = plan->key_exists(full_path(path))) {
            return *planned;
        }
    }
    return open(path, platform::key_query_value) != nullptr;
}

bool value_exists(const text32& path, const text32& name)
{
    if (const planned_changes* plan = planned_changes::active()) {
        if (const auto planned = plan->value(full_path(path), name)) {
            return planned->has_value();
        }
    }
    const platform::key key = open(path, platform::key_query_value);
    return key != nullptr && succeeded(platform::query_value(key, to_utf16(name)), path);
}

text32 read_value(const text32& path, const text32& name)
{
    if (const planned_changes* plan = planned_changes::active()) {
        if (const auto planned = plan->value(full_path(path), name)) {
            return planned->value_or(text32());
        }
    }
    const platform::key key = open(path, platform::key_query_value);
    std::u16string text;
    if (key == nullptr ||
        !succeeded(platform::get_string(key, to_utf16(name), value_capacity, text), path)) {
        return {};
    }
    return to_text32(text);
}

std::optional<registry_data> read_data(const text32& path, const text32& name)
{
    if (const planned_changes* plan = planned_changes::active()) {
        if (const auto planned = plan->value(full_path(path), name)) {
            return *planned ? std::optional(registry_data{"REG_SZ", **planned}) : std::nullopt;
        }
    }
    const platform::key key = open(path, platform::key_query_value);
    std::uint32_t type = 0;
    std::vector<std::uint8_t> bytes;
    if (key == nullptr || !succeeded(platform::get_data(key, to_utf16(name), type, bytes), path)) {
        return std::nullopt;
    }
    return describe_data(type, bytes);
}

std::map<text32, text32> read_values(const text32& path, const std::vector<text32>& names)
{
    std::map<text32, text32> values;
    if (!key_exists(path)) {
        return values;
    }
    std::vector<std::u16string> texts;
    bool all = false;
    if (planned_changes::active() == nullptr) {
        std::vector<std::u16string> wanted(names.size());
        std::transform(names.begin(), names.end(), wanted.begin(),
                       [](const text32& name) { return to_utf16(name); });
        const platform::key key = open(path, platform::key_query_value);
        all = key != nullptr && succeeded(platform::get_strings(key, wanted, texts), path);
    }
    for (std::size_t i = 0; i < names.size(); ++i) {
        // One missing value fails the whole query, so the others are asked for one by one.
        values[names[i]] = all ? to_text32(texts[i]) : read_value(path, names[i]);
    }
    return values;
}

std::vector<text32> value_names(const text32& path)
{
    std::vector<text32> names =
        real_names(path, &platform::key_info::values, &platform::key_info::longest_value,
                   platform::enum_value);
    if (const planned_changes* plan = planned_changes::active()) {
        plan->adjust_values(full_path(path), names);
    }
    return names;
}

std::vector<text32> subkey_names(const text32& path)
{
    std::vector<text32> names =
        real_names(path, &platform::key_info::subkeys, &platform::key_info::longest_subkey,
                   platform::enum_subkey);
    if (const planned_changes* plan = planned_changes::active()) {
        plan->adjust_subkeys(full_path(path), names);
    }
    std::sort(names.begin(), names.end(), [](const text32& a, const text32& b) {
        return name_key(to_utf16(a)) < name_key(to_utf16(b));
    });
    return names;
}

bool create_key(const text32& path)
{
    if (planned_changes* plan = planned_changes::active()) {
        if (!is_key_path(path)) {
            return false;
        }
        expect_right_to_create(path);
        plan->create_key(full_path(path));
        return true;
    }
    const resolved_key key = resolve(path);
    platform::key created;
    return succeeded(platform::create_key(key.root, to_utf16(key.subkey),
                                          platform::key_set_value | view_flag(), created),
                     path);
}

bool set_string_value(const text32& path, const text32& name, const text32& text)
{
    if (planned_changes* plan = planned_changes::active()) {
        if (!is_key_path(path)) {
            return false;
        }
        if (!key_exists(path)) {
            throw registry_error(registry_error::key_not_found, path);
        }
        expect_right(path, platform::key_set_value);
        plan->set_value(full_path(path), name, read_data(path, name), text);
        return true;
    }
    const resolved_key key = resolve(path);
    platform::key opened;
    const platform::status status = platform::open_key(
        key.root, to_utf16(key.subkey), platform::key_set_value | view_flag(), opened);
    if (status == platform::not_found) {
        throw registry_error(registry_error::key_not_found, path);
    }
    return succeeded(status, path) &&
           succeeded(platform::set_string(opened, to_utf16(name), to_utf16(text)), path);
}

bool delete_key(const text32& path)
{
    const resolved_key key = resolve(path);
    if (key.subkey.empty() || !key_exists(path)) {
        return false; // a root stays, whatever is asked
    }
    if (planned_changes* plan = planned_changes::active()) {
        expect_right_to_delete(path);
        plan->delete_key(full_path(path));
        return true;
    }
    const auto [above, last] = split_last(key.subkey);
    // From the root itself the deletion would miss the 64-bit view, which comes with the parent.
    platform::key parent;
    const std::uint32_t access =
        platform::key_read | platform::key_set_value | platform::key_delete | view_flag();
    return succeeded(platform::open_key(key.root, to_utf16(above), access, parent), path) &&
           succeeded(platform::delete_tree(parent, to_utf16(last)), path);
}

bool delete_value(const text32& path, const text32& name, int flag)
{
    if (!value_exists(path, name)) {
        return false;
    }
    bool deleted = true;
    if (planned_changes* plan = planned_changes::active()) {
        expect_right(path, platform::key_set_value);
        plan->delete_value(full_path(path), name, read_data(path, name));
    } else {
        const platform::key key = open(path, platform::key_set_value);
        deleted = key != nullptr && succeeded(platform::delete_value(key, to_utf16(name)), path);
    }
    if (deleted && flag != 0 && is_empty(path)) {
        delete_key(path);
    }
    return deleted;
}

text32 uninstall_key(const text32& name)
{
    return U"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\" + name;
}

} // namespace nrd::misc
