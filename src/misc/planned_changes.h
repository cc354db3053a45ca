#pragma once

#include "misc/file_system.h"
#include "misc/path.h"
#include "misc/registry_data.h"
#include "misc/text.h"

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace nrd::misc {

enum class change_kind {
    create_folder,
    copy_file,
    write_file,
    rename,
    remove,
    create_shortcut,
    create_key,
    set_value,
    delete_key,
    delete_value,
};

/// One change that was asked for. Fields that the kind has no use for are empty.
struct planned_change {
    change_kind kind = change_kind::create_folder;
    path source{};           ///< of a copy, or the name before a renaming
    path target{};           ///< the file or folder; of a shortcut, the link itself
    std::uint64_t bytes = 0; ///< of the source of a copy
    bool replaces = false;   ///< a copy onto a file that is there
    text32 key{};            ///< registry key with its root, or the goal of a shortcut
    text32 name{};           ///< registry value
    std::optional<registry_data> before{}; ///< data that a value has now
    text32 data{};                         ///< data that it gets, always a REG_SZ
};

/// While an object of this class lives, nothing in the program changes the machine: every change
/// that goes through misc is recorded instead, and later questions are answered as if it had been
/// made, so that code which changes the machine can be run to learn what it would do. At most one
/// lives at a time, on one thread.
class planned_changes {
public:
    planned_changes();
    ~planned_changes();
    planned_changes(const planned_changes&) = delete;
    planned_changes& operator=(const planned_changes&) = delete;

    /// Null while changes are carried out.
    static planned_changes* active();

    [[nodiscard]] const std::vector<planned_change>& list() const { return list_; }

    // What file_system.cpp and shell.cpp report and ask.
    void create_folder(const path& p);
    void copy_file(const path& from, const path& to, std::uint64_t bytes, bool replaces);
    void write_file(const path& p);
    void rename(const path& from, const path& to);
    void remove(const path& p);
    void create_shortcut(const path& link, const text32& destination);
    /// The status that the changes so far give `p`; nothing if they did not touch it.
    [[nodiscard]] std::optional<file_status> status(const path& p) const;
    /// The same for the size; what will be written later counts 0 bytes.
    [[nodiscard]] std::optional<std::uint64_t> file_size(const path& p) const;
    /// Adds names that `folder` has by now, and takes out those that are gone.
    void adjust_entries(const path& folder, std::vector<path>& entries) const;

    // What registry.cpp reports and asks; keys are full paths.
    void create_key(const text32& key);
    void set_value(const text32& key, const text32& name, std::optional<registry_data> before,
                   const text32& data);
    void delete_key(const text32& key);
    void delete_value(const text32& key, const text32& name, std::optional<registry_data> before);
    /// Nothing if the changes did not touch the key.
    [[nodiscard]] std::optional<bool> key_exists(const text32& key) const;
    /// Outer: whether the changes touched the value; inner: its data, nothing if it is gone.
    [[nodiscard]] std::optional<std::optional<text32>> value(const text32& key,
                                                             const text32& name) const;
    /// Adds the names that are in the key by now, and takes out those that are gone.
    void adjust_subkeys(const text32& key, std::vector<text32>& names) const;
    void adjust_values(const text32& key, std::vector<text32>& names) const;

private:
    struct made_file {
        path where;
        file_type type;
        std::uint64_t bytes;
    };
    struct value_state {
        text32 name;
        std::optional<text32> data;
    };

    void make(const path& p, file_type type, std::uint64_t bytes = 0);
    void make_gone(const path& p);
    /// What the machine has in a key counts no more once the key, or one above it, was deleted,
    /// also after it was made again.
    [[nodiscard]] bool is_key_gone(const text32& key) const;
    void make_copy(const path& from, const path& to, std::vector<made_file>& copies) const;

    // By upper-cased paths. What is gone hides what the machine has there and below; what was made
    // stands above that.
    std::vector<planned_change> list_;
    std::map<std::u16string, made_file> made_;
    std::set<std::u16string> gone_;
    std::map<std::u16string, text32> made_keys_;
    std::set<std::u16string> gone_keys_;
    std::map<std::pair<std::u16string, std::u16string>, value_state> values_;
};

} // namespace nrd::misc
