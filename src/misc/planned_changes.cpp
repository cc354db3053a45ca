#include "misc/planned_changes.h"

#include <algorithm>
#include <stdexcept>

namespace nrd::misc {

namespace {

planned_changes* active_plan = nullptr;

std::u16string registry_key(const text32& text)
{
    return name_key(to_utf16(text));
}

/// True if a member of `tops` is `key`, or above it.
bool covers(const std::set<std::u16string>& tops, const std::u16string& key)
{
    return std::any_of(tops.begin(), tops.end(),
                       [&key](const std::u16string& top) { return is_or_lies_in(key, top); });
}

/// Calls `take` with each member of the map that lies directly in `folder`.
template <class Map, class Take>
void for_each_inside(const Map& map, const std::u16string& folder, Take take)
{
    const std::u16string prefix = folder + u'\\';
    for (auto each = map.lower_bound(prefix); each != map.end(); ++each) {
        if (!each->first.starts_with(prefix)) {
            return;
        }
        if (each->first.find(u'\\', prefix.size()) == prefix.npos) {
            take(each->second);
        }
    }
}

template <class Map> void erase_tree(Map& map, const std::u16string& top)
{
    std::erase_if(map, [&top](const auto& each) { return is_or_lies_in(each.first, top); });
}

bool contains(const std::vector<text32>& names, const text32& name)
{
    return std::any_of(names.begin(), names.end(), [&name](const text32& each) {
        return registry_key(each) == registry_key(name);
    });
}

} // namespace

planned_changes::planned_changes()
{
    if (active_plan != nullptr) {
        throw std::logic_error("changes are already being planned");
    }
    active_plan = this;
}

planned_changes::~planned_changes()
{
    active_plan = nullptr;
}

planned_changes* planned_changes::active()
{
    return active_plan;
}

void planned_changes::make(const path& p, file_type type, std::uint64_t bytes)
{
    made_.insert_or_assign(path_key(p), made_file{p, type, bytes});
}

void planned_changes::make_gone(const path& p)
{
    const std::u16string key = path_key(p);
    erase_tree(made_, key);
    gone_.insert(key);
}

/// What `to` would hold if all of `from` were copied there.
void planned_changes::make_copy(const path& from, const path& to,
                                std::vector<made_file>& copies) const
{
    const file_type type = misc::symlink_status(from).type();
    copies.push_back({to, type, misc::file_size(from)});
    if (type == boost::filesystem::directory_file) {
        for (const path& entry : misc::directory_entries(from)) {
            make_copy(entry, to / entry.filename(), copies);
        }
    }
}

void planned_changes::create_folder(const path& p)
{
    list_.push_back({.kind = change_kind::create_folder, .target = p});
    std::vector<path> missing;
    for (path folder = p; !folder.empty(); folder = folder.parent_path()) {
        if (misc::missing(folder)) {
            missing.push_back(folder);
        }
    }
    for (const path& folder : missing) {
        make(folder, boost::filesystem::directory_file);
    }
}

void planned_changes::copy_file(const path& from, const path& to, std::uint64_t bytes,
                                bool replaces)
{
    list_.push_back({.kind = change_kind::copy_file,
                     .source = from,
                     .target = to,
                     .bytes = bytes,
                     .replaces = replaces});
    make(to, boost::filesystem::regular_file, bytes);
}

void planned_changes::write_file(const path& p)
{
    list_.push_back({.kind = change_kind::write_file, .target = p});
    make(p, boost::filesystem::regular_file);
}

void planned_changes::rename(const path& from, const path& to)
{
    list_.push_back({.kind = change_kind::rename, .source = from, .target = to});
    std::vector<made_file> moved;
    make_copy(from, to, moved);
    make_gone(from);
    for (const made_file& each : moved) {
        make(each.where, each.type, each.bytes);
    }
}

void planned_changes::remove(const path& p)
{
    list_.push_back({.kind = change_kind::remove, .target = p});
    make_gone(p);
}

void planned_changes::create_shortcut(const path& link, const text32& destination)
{
    list_.push_back({.kind = change_kind::create_shortcut, .target = link, .key = destination});
    make(link, boost::filesystem::regular_file);
}

std::optional<file_status> planned_changes::status(const path& p) const
{
    if (p.empty()) {
        return std::nullopt;
    }
    const std::u16string key = path_key(p);
    if (const auto made = made_.find(key); made != made_.end()) {
        return file_status(made->second.type, boost::filesystem::all_all);
    }
    if (covers(gone_, key)) {
        return file_status(boost::filesystem::file_not_found);
    }
    return std::nullopt;
}

std::optional<std::uint64_t> planned_changes::file_size(const path& p) const
{
    if (!status(p)) {
        return std::nullopt;
    }
    const auto made = made_.find(path_key(p));
    return made == made_.end() ? 0 : made->second.bytes;
}

void planned_changes::adjust_entries(const path& folder, std::vector<path>& entries) const
{
    std::erase_if(entries, [this](const path& entry) {
        const auto planned = status(entry);
        return planned && planned->type() == boost::filesystem::file_not_found;
    });
    std::set<std::u16string> listed;
    for (const path& entry : entries) {
        listed.insert(path_key(entry));
    }
    for_each_inside(made_, path_key(folder), [&](const made_file& made) {
        if (!listed.contains(path_key(made.where))) {
            // Made with a separator at its end, a folder has its name one step further up.
            const path name = made.where.filename();
            entries.push_back(folder / (name == "." ? made.where.parent_path().filename() : name));
        }
    });
}

void planned_changes::create_key(const text32& key)
{
    list_.push_back({.kind = change_kind::create_key, .key = key});
    for (std::size_t end = key.find(U'\\');; end = key.find(U'\\', end + 1)) {
        made_keys_.try_emplace(registry_key(key.substr(0, end)), key.substr(0, end));
        if (end == key.npos) {
            return;
        }
    }
}

void planned_changes::set_value(const text32& key, const text32& name,
                                std::optional<registry_data> before, const text32& data)
{
    list_.push_back({.kind = change_kind::set_value,
                     .key = key,
                     .name = name,
                     .before = std::move(before),
                     .data = data});
    values_.insert_or_assign({registry_key(key), registry_key(name)}, value_state{name, data});
}

void planned_changes::delete_key(const text32& key)
{
    list_.push_back({.kind = change_kind::delete_key, .key = key});
    const std::u16string top = registry_key(key);
    erase_tree(made_keys_, top);
    std::erase_if(values_,
                  [&top](const auto& each) { return is_or_lies_in(each.first.first, top); });
    gone_keys_.insert(top);
}

void planned_changes::delete_value(const text32& key, const text32& name,
                                   std::optional<registry_data> before)
{
    list_.push_back(
        {.kind = change_kind::delete_value, .key = key, .name = name, .before = std::move(before)});
    values_.insert_or_assign({registry_key(key), registry_key(name)},
                             value_state{name, std::nullopt});
}

bool planned_changes::is_key_gone(const text32& key) const
{
    return covers(gone_keys_, registry_key(key));
}

std::optional<bool> planned_changes::key_exists(const text32& key) const
{
    if (made_keys_.contains(registry_key(key))) {
        return true;
    }
    return is_key_gone(key) ? std::optional(false) : std::nullopt;
}

std::optional<std::optional<text32>> planned_changes::value(const text32& key,
                                                            const text32& name) const
{
    if (const auto known = values_.find({registry_key(key), registry_key(name)});
        known != values_.end()) {
        return known->second.data;
    }
    if (!is_key_gone(key)) {
        return std::nullopt;
    }
    return std::optional<text32>(); // what the machine has there is gone with the key
}

void planned_changes::adjust_subkeys(const text32& key, std::vector<text32>& names) const
{
    std::erase_if(names, [&](const text32& name) {
        return key_exists(key + U'\\' + name) == std::optional(false);
    });
    for_each_inside(made_keys_, registry_key(key), [&names](const text32& made) {
        const text32 name = made.substr(made.rfind(U'\\') + 1);
        if (!contains(names, name)) {
            names.push_back(name);
        }
    });
}

void planned_changes::adjust_values(const text32& key, std::vector<text32>& names) const
{
    std::erase_if(names, [&](const text32& name) {
        const auto planned = value(key, name);
        return planned && !planned->has_value();
    });
    const std::u16string wanted = registry_key(key);
    for (auto each = values_.lower_bound({wanted, {}});
         each != values_.end() && each->first.first == wanted; ++each) {
        if (each->second.data && !contains(names, each->second.name)) {
            names.push_back(each->second.name);
        }
    }
}

} // namespace nrd::misc
