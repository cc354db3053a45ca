#pragma once

#include "inst/installation/variables.h"
#include "misc/path.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace nrd::installation {

struct var {
    text32 name;
    text32 value; ///< may hold placeholders `${NAME}`
};

/// One source, a file or a folder, and where it goes. `in` and `out` are kept with normalised
/// separators, unexpanded; a relative `in` counts from the spec's working directory.
class fileset {
public:
    fileset() = default;
    fileset(const text32& in, const text32& out, text32 create_folders);

    [[nodiscard]] const text32& in() const { return in_; }
    [[nodiscard]] const text32& out() const { return out_; }
    /// "false": copied only where the folder above `out` exists already. Kept as it was written.
    [[nodiscard]] const text32& create_folders() const { return create_folders_; }

    void set_in(const text32& in) { in_ = normalise_separators(in); }
    void set_out(const text32& out) { out_ = normalise_separators(out); }

private:
    text32 in_;
    text32 out_;
    text32 create_folders_;
};

struct package {
    std::string name;
    std::string os;   ///< "win", "mac", "all"
    std::string bits; ///< "32", "64", "all"
    std::vector<fileset> filesets;
};

/// One registry value.
struct reg_key {
    text32 path;      ///< of the key, with or without its root
    std::string name; ///< of the value, UTF-8; empty for the key's default value
    text32 data;      ///< may hold placeholders
    /// An element 0 makes the install delete the value instead of writing it.
    std::vector<std::uint32_t> binary_data;
};

/// A search path for a host application.
struct path_entry {
    text32 path;
    text32 app_code;
};

struct shortcut {
    text32 location; ///< of the link, without ".lnk"
    text32 destination;
    text32 os = U"all";
};

/// A program that must not run during an install.
struct block_process {
    std::string name; ///< as the process list shows it, with or without ".exe"
    std::string os;   ///< "all" or "win"; anything else never blocks
};

/// The declarative model of one installation; a value. Not synchronised: it belongs to the main
/// thread until an install starts, and then to the worker.
class spec {
public:
    std::vector<var> vars = {{U"DEFAULT_PROGRAM_DIRECTORY", U"C:\\Program Files\\"}};
    std::vector<package> packages;
    std::vector<reg_key> reg_keys;
    std::vector<path_entry> path_entries;
    std::vector<shortcut> shortcuts;
    std::vector<block_process> block_processes;
    /// The folder of the install.xml; empty for a spec that was not read from one.
    misc::path working_directory;

    [[nodiscard]] bool has_var(const text32& name) const;
    /// Throws std::invalid_argument if there is none.
    var& find_var(const text32& name);
    [[nodiscard]] const var& find_var(const text32& name) const;

    /// A name that is there already keeps its value.
    void add_var(const var& added);
    void add_vars(const std::vector<var>& added);
    /// Throws std::invalid_argument if there is no such variable.
    void set_var(const text32& name, const text32& value);
    /// The variable exists afterwards, with this value.
    void ensure_var(const text32& name, const text32& value);

    /// Expanded. Throws std::invalid_argument if there is no such variable.
    [[nodiscard]] text32 var_value(const text32& name) const;
    /// The one way from a stored field to its final text: placeholders replaced by this spec's
    /// variables, unknown ones left, then separators normalised, in whatever the text is.
    [[nodiscard]] text32 expand(std::u32string_view text) const;
    [[nodiscard]] text32 app_name() const { return var_value(U"APP_NAME"); }

    /// The dump for the log, fields unexpanded. Throws std::invalid_argument without "APP_NAME".
    [[nodiscard]] text32 to_text() const;

private:
    /// The look-up of has_var; null if there is none.
    [[nodiscard]] const var* look_up(const text32& name) const;
};

using specs = std::vector<spec>;

} // namespace nrd::installation
