#include "tools/uninstaller/record_removal.h"

#include "inst/installer/core/path_index.h"
#include "misc/file_system.h"
#include "misc/registry.h"
#include "streams/installer_log.h"

#include <algorithm>

namespace nrd::uninstaller {

using installation::path_entry;
using installation::reg_key;
using installation::spec;
using misc::text32;
using misc::to_utf8;

namespace core = installer::core;

namespace {

void save(const core::path_index& index, leftovers& left)
{
    const misc::path file = core::path_index_file();
    misc::error_code ec;
    if (index.empty()) {
        misc::remove(file, ec);
    } else {
        std::ofstream out = misc::open_for_writing(file);
        core::write_path_index(index, out);
        out.close();
        if (!out) {
            ec = make_error_code(boost::system::errc::io_error);
        }
    }
    if (ec) {
        left.push_back("The entries in " + to_utf8(file) +
                       " cannot be removed: " + misc::error_message(ec));
    }
}

bool is_empty_key(const text32& key)
{
    return misc::key_exists(key) && misc::value_names(key).empty() &&
           misc::subkey_names(key).empty();
}

/// The key goes if nothing is left in it, and those above it likewise, since a key is made together
/// with them.
void remove_emptied_keys(text32 key)
{
    try {
        while (is_empty_key(key) && misc::delete_key(key)) {
            key.resize(std::min(key.rfind(U'\\'), key.size()));
        }
    } catch (const misc::registry_error&) {
        // An empty key that may not be touched is nothing that anyone would miss or mind.
        return;
    }
}

} // namespace

bool is_uninstall_entry(const spec& s, const reg_key& key)
{
    const auto comparable = [&s](const text32& path) {
        return misc::name_key(misc::to_utf16(s.expand(path)));
    };
    return comparable(key.path) == comparable(misc::uninstall_key(s.find_var(U"APP_NAME").value));
}

void remove_value(const spec& s, const reg_key& key, leftovers& left)
{
    const text32 path = s.expand(key.path);
    const text32 name = s.expand(misc::to_text32(std::string_view(key.name)));
    try {
        if (!misc::value_exists(path, name)) {
            return;
        }
        installer_log("Removing the registry value " + to_utf8(path) + ", " + to_utf8(name));
        misc::delete_value(path, name, 0);
        if (misc::value_exists(path, name)) {
            left.push_back("The value " + to_utf8(name) + " of the registry key " + to_utf8(path) +
                           " cannot be removed");
        }
        remove_emptied_keys(path);
    } catch (const misc::registry_error& error) {
        left.emplace_back(error.what());
    }
}

void remove_path_entries(const spec& s, leftovers& left)
{
    std::ifstream file = misc::open_for_reading(core::path_index_file());
    core::path_index index = core::read_path_index(file);
    file.close();
    const std::size_t before = index.size();
    for (const path_entry& each : s.path_entries) {
        const auto found = index.find(to_utf8(s.expand(each.app_code)));
        if (found != index.end() && found->second.path == to_utf8(s.expand(each.path))) {
            installer_log("Removing the path entry " + found->first);
            index.erase(found);
        }
    }
    if (index.size() != before) {
        save(index, left);
    }
}

} // namespace nrd::uninstaller
