#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

// The system's own registry calls, one to one; what they mean together is said in registry.cpp.

namespace nrd::misc::registry_platform {

/// A Windows error number.
using status = std::uint32_t;
constexpr status success = 0;
constexpr status not_found = 2;
constexpr status access_denied = 5;
/// For a path that begins with a separator; several in a row further on count as one.
constexpr status bad_path = 161;
constexpr status more_data = 234;
constexpr status no_more_items = 259;
constexpr status unsupported_type = 1630;

// The system's handles of the two roots, and its access rights.
constexpr std::uint32_t local_machine = 0x80000002;
constexpr std::uint32_t classes_root = 0x80000000;
constexpr std::uint32_t key_query_value = 0x1;
constexpr std::uint32_t key_set_value = 0x2;
constexpr std::uint32_t key_create_sub_key = 0x4;
constexpr std::uint32_t key_read = 0x20019;
constexpr std::uint32_t key_delete = 0x10000;
constexpr std::uint32_t key_wow64_64key = 0x100;

struct key_handle;
struct close_key {
    void operator()(key_handle* key) const;
};
using key = std::unique_ptr<key_handle, close_key>;

/// Counts of entries, and the longest names as the system tells them.
struct key_info {
    std::uint32_t subkeys = 0;
    std::uint32_t longest_subkey = 0;
    std::uint32_t values = 0;
    std::uint32_t longest_value = 0;
};

status open_key(std::uint32_t root, const std::u16string& subkey, std::uint32_t access, key& out);
status create_key(std::uint32_t root, const std::u16string& subkey, std::uint32_t access, key& out);
status query_info(const key& k, key_info& out);
/// `capacity` counts UTF-16 units with the terminating zero; more_data if it is too small.
status enum_subkey(const key& k, std::uint32_t index, std::uint32_t capacity, std::u16string& out);
status enum_value(const key& k, std::uint32_t index, std::uint32_t capacity, std::u16string& out);
status get_string(const key& k, const std::u16string& name, std::uint32_t capacity,
                  std::u16string& out);
/// One query for all; it fails as a whole if one is missing.
status get_strings(const key& k, const std::vector<std::u16string>& names,
                   std::vector<std::u16string>& out);
/// A value of whatever type: its number and its bytes, numbers with the lowest first, texts in
/// UTF-16.
status get_data(const key& k, const std::u16string& name, std::uint32_t& type,
                std::vector<std::uint8_t>& out);
/// Whether the value is there, of whatever type.
status query_value(const key& k, const std::u16string& name);
status set_string(const key& k, const std::u16string& name, const std::u16string& text);
status delete_tree(const key& parent, const std::u16string& name);
status delete_value(const key& k, const std::u16string& name);

} // namespace nrd::misc::registry_platform
