#include "misc/registry_platform.h"

#include "misc/file_system.h"
#include "misc/posix/machine.h"
#include "misc/registry_data.h"
#include "misc/text.h"

#include <algorithm>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <sys/file.h>
#include <unistd.h>

// The registry of a machine folder is one JSON object. Each member is a key with its full path, and
// holds the key's values: a text is a REG_SZ, anything else is {"type": ..., "data": ...}.

namespace nrd::misc::registry_platform {

struct key_handle {
    std::u16string path; ///< full, with the root, as it was asked for
};

namespace {

struct stored_value {
    std::u16string name;
    nlohmann::json data;
};

struct stored_key {
    std::u16string path;
    std::map<std::u16string, stored_value> values; ///< by upper-cased names
};

/// By upper-cased paths.
using store = std::map<std::u16string, stored_key>;

std::u16string full_path(std::uint32_t root, const std::u16string& subkey)
{
    std::u16string path = root == classes_root ? u"HKEY_CLASSES_ROOT" : u"HKEY_LOCAL_MACHINE";
    for (const std::string& name : split(to_utf8(subkey), '\\')) {
        if (!name.empty()) {
            path += u'\\' + to_utf16(std::string_view(name));
        }
    }
    return path;
}

/// A key that is there keeps its spelling, in the paths of those below it too.
void add_with_parents(store& keys, const std::u16string& path)
{
    std::u16string spelled;
    for (std::size_t begin = 0; begin <= path.size();) {
        const std::size_t end = std::min(path.find(u'\\', begin), path.size());
        spelled += (begin == 0 ? u"" : u"\\") + path.substr(begin, end - begin);
        spelled = keys.try_emplace(name_key(spelled), stored_key{spelled, {}}).first->second.path;
        begin = end + 1;
    }
}

bool is_path(const std::u16string& subkey)
{
    return !subkey.starts_with(u'\\');
}

std::filesystem::path file_path()
{
    return this_machine().folder / "registry.json";
}

store load()
{
    store keys;
    add_with_parents(keys, u"HKEY_LOCAL_MACHINE");
    add_with_parents(keys, u"HKEY_CLASSES_ROOT");
    std::ifstream file(file_path());
    if (!file) {
        return keys;
    }
    try {
        const nlohmann::json all = nlohmann::json::parse(file);
        for (const auto& [path, values] : all.items()) {
            const std::u16string wide_path = to_utf16(std::string_view(path));
            add_with_parents(keys, wide_path);
            stored_key& stored = keys.at(name_key(wide_path));
            for (const auto& [name, data] : values.items()) {
                const std::u16string wide_name = to_utf16(std::string_view(name));
                stored.values[name_key(wide_name)] = {wide_name, data};
            }
        }
    } catch (const nlohmann::json::exception& error) {
        throw std::invalid_argument(file_path().string() + ": " + error.what());
    }
    return keys;
}

void save(const store& keys)
{
    nlohmann::ordered_json all = nlohmann::ordered_json::object();
    for (const auto& [upper, stored] : keys) {
        auto& values = all[to_utf8(stored.path)] = nlohmann::ordered_json::object();
        for (const auto& [upper_name, value] : stored.values) {
            values[to_utf8(value.name)] = value.data;
        }
    }
    std::filesystem::create_directories(this_machine().folder);
    const std::filesystem::path temporary = file_path().string() + ".new";
    std::ofstream file(temporary, std::ios::trunc);
    file << all.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
    file.close();
    if (!file) {
        throw std::runtime_error(temporary.string() + " cannot be written");
    }
    std::filesystem::rename(temporary, file_path());
}

/// Keeps other processes from changing the registry between a load and the save that follows it.
class change_lock {
public:
    change_lock()
    {
        std::filesystem::create_directories(this_machine().folder);
        folder_ = open(this_machine().folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        flock(folder_, LOCK_EX);
    }
    ~change_lock() { close(folder_); }
    change_lock(const change_lock&) = delete;
    change_lock& operator=(const change_lock&) = delete;

private:
    int folder_ = -1;
};

bool denied(const std::u16string& path)
{
    const std::u16string wanted = name_key(path);
    const std::vector<std::string>& list = this_machine().denied_keys;
    return std::any_of(list.begin(), list.end(), [&wanted](const std::string& each) {
        std::u16string refused = name_key(to_utf16(std::string_view(each)));
        if (!refused.starts_with(u"HKEY_")) {
            refused.insert(0, u"HKEY_LOCAL_MACHINE\\");
        }
        return is_or_lies_in(wanted, refused);
    });
}

/// What `change` makes of the opened key; nothing is saved unless it succeeds.
template <class Change> status change_key(const key& k, Change change)
{
    const change_lock lock;
    store keys = load();
    const auto found = keys.find(name_key(k->path));
    const status result = found == keys.end() ? not_found : change(keys, found->second);
    if (result == success) {
        save(keys);
    }
    return result;
}

stored_key content(const key& k)
{
    const store keys = load();
    const auto found = keys.find(name_key(k->path));
    return found == keys.end() ? stored_key{} : found->second;
}

std::vector<std::u16string> subkeys(const key& k)
{
    std::vector<std::u16string> names;
    const std::u16string above = name_key(k->path);
    for (const auto& [upper, each] : load()) {
        if (lies_in(upper, above) && upper.find(u'\\', above.size() + 1) == upper.npos) {
            names.push_back(each.path.substr(above.size() + 1));
        }
    }
    return names;
}

std::vector<std::u16string> values(const key& k)
{
    std::vector<std::u16string> names;
    for (const auto& [upper, value] : content(k).values) {
        names.push_back(value.name);
    }
    return names;
}

std::uint32_t longest(const std::vector<std::u16string>& names)
{
    std::size_t length = 0;
    for (const std::u16string& name : names) {
        length = std::max(length, name.size());
    }
    return static_cast<std::uint32_t>(length);
}

/// A text with its zero, as the system keeps it.
void append_text(std::vector<std::uint8_t>& bytes, const nlohmann::json& text)
{
    for (const char16_t unit : to_utf16(std::string_view(text.get<std::string>())) + u'\0') {
        bytes.push_back(static_cast<std::uint8_t>(unit & 0xFF));
        bytes.push_back(static_cast<std::uint8_t>(unit >> 8));
    }
}

/// "data" is a text, of a number the number, of a list its texts, and else bytes in hexadecimal.
std::vector<std::uint8_t> bytes_of(std::uint32_t type, const nlohmann::json& data)
{
    std::vector<std::uint8_t> bytes;
    if (data.is_array()) {
        for (const nlohmann::json& text : data) {
            append_text(bytes, text);
        }
        bytes.insert(bytes.end(), 2, 0);
    } else if (data.is_number()) {
        const auto number = data.get<std::uint64_t>();
        const int size = type == registry_type("REG_QWORD") ? 8 : 4;
        for (int i = 0; i < size; ++i) {
            bytes.push_back(static_cast<std::uint8_t>(number >> 8 * i));
        }
        if (type == registry_type("REG_DWORD_BIG_ENDIAN")) {
            std::reverse(bytes.begin(), bytes.end());
        }
    } else if (type == registry_type("REG_SZ") || type == registry_type("REG_EXPAND_SZ")) {
        append_text(bytes, data);
    } else {
        bytes = from_hex(data.get<std::string>());
    }
    return bytes;
}

status pick(const std::vector<std::u16string>& names, std::uint32_t index, std::uint32_t capacity,
            std::u16string& out)
{
    if (index >= names.size()) {
        return no_more_items;
    }
    if (names[index].size() >= capacity) {
        return more_data;
    }
    out = names[index];
    return success;
}

} // namespace

void close_key::operator()(key_handle* handle) const
{
    delete handle;
}

status open_key(std::uint32_t root, const std::u16string& subkey, std::uint32_t, key& out)
{
    if (!is_path(subkey)) {
        return bad_path;
    }
    const std::u16string path = full_path(root, subkey);
    if (denied(path)) {
        return access_denied;
    }
    if (!load().contains(name_key(path))) {
        return not_found;
    }
    out.reset(new key_handle{path});
    return success;
}

status create_key(std::uint32_t root, const std::u16string& subkey, std::uint32_t access, key& out)
{
    if (!is_path(subkey)) {
        return bad_path;
    }
    const std::u16string path = full_path(root, subkey);
    if (denied(path)) {
        return access_denied;
    }
    {
        const change_lock lock;
        store keys = load();
        if (!keys.contains(name_key(path))) {
            add_with_parents(keys, path);
            save(keys);
        }
    }
    return open_key(root, subkey, access, out);
}

status query_info(const key& k, key_info& out)
{
    const std::vector<std::u16string> below = subkeys(k);
    const std::vector<std::u16string> inside = values(k);
    out = {static_cast<std::uint32_t>(below.size()), longest(below),
           static_cast<std::uint32_t>(inside.size()), longest(inside)};
    return success;
}

status enum_subkey(const key& k, std::uint32_t index, std::uint32_t capacity, std::u16string& out)
{
    return pick(subkeys(k), index, capacity, out);
}

status enum_value(const key& k, std::uint32_t index, std::uint32_t capacity, std::u16string& out)
{
    return pick(values(k), index, capacity, out);
}

status get_string(const key& k, const std::u16string& name, std::uint32_t capacity,
                  std::u16string& out)
{
    const stored_key all = content(k);
    const auto found = all.values.find(name_key(name));
    if (found == all.values.end()) {
        return not_found;
    }
    const nlohmann::json& data = found->second.data;
    const bool expandable = data.is_object() && data.value("type", "") == "REG_EXPAND_SZ";
    if (!data.is_string() && !expandable) {
        return unsupported_type;
    }
    const std::string text = expandable ? data.value("data", "") : data.get<std::string>();
    const std::u16string wide = to_utf16(std::string_view(text));
    if (wide.size() >= capacity) {
        return more_data;
    }
    out = wide.substr(0, wide.find(u'\0'));
    return success;
}

status get_strings(const key& k, const std::vector<std::u16string>& names,
                   std::vector<std::u16string>& out)
{
    out.resize(names.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (const status result = get_string(k, names[i], UINT32_MAX, out[i]); result != success) {
            return result;
        }
    }
    return success;
}

status get_data(const key& k, const std::u16string& name, std::uint32_t& type,
                std::vector<std::uint8_t>& out)
{
    const stored_key all = content(k);
    const auto found = all.values.find(name_key(name));
    if (found == all.values.end()) {
        return not_found;
    }
    try {
        const nlohmann::json& stored = found->second.data;
        type = registry_type(stored.is_string() ? "REG_SZ" : stored.at("type").get<std::string>());
        out = bytes_of(type, stored.is_string() ? stored : stored.at("data"));
    } catch (const std::exception& error) {
        throw std::invalid_argument(file_path().string() + ": " + to_utf8(k->path) + ": " +
                                    error.what());
    }
    return success;
}

status query_value(const key& k, const std::u16string& name)
{
    return content(k).values.contains(name_key(name)) ? success : not_found;
}

status set_string(const key& k, const std::u16string& name, const std::u16string& text)
{
    return change_key(k, [&](store&, stored_key& stored) {
        // A name keeps the spelling that it was first given.
        const auto value = stored.values.try_emplace(name_key(name), stored_value{name, {}}).first;
        value->second.data = to_utf8(text);
        return success;
    });
}

status delete_tree(const key& parent, const std::u16string& name)
{
    return change_key(parent, [&](store& keys, stored_key& above) {
        const std::u16string top = name_key(above.path) + u'\\' + name_key(name);
        const bool refused = std::any_of(keys.begin(), keys.end(), [&top](const auto& each) {
            return lies_in(each.first, top) && denied(each.first);
        });
        if (refused) {
            return access_denied;
        }
        const std::size_t removed = std::erase_if(
            keys, [&top](const auto& each) { return is_or_lies_in(each.first, top); });
        return removed == 0 ? not_found : success;
    });
}

status delete_value(const key& k, const std::u16string& name)
{
    return change_key(k, [&](store&, stored_key& stored) {
        return stored.values.erase(name_key(name)) == 0 ? not_found : success;
    });
}

} // namespace nrd::misc::registry_platform
