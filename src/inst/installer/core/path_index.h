#pragma once

#include "misc/path.h"
#include "misc/text.h"

#include <cstdint>
#include <istream>
#include <map>
#include <ostream>
#include <string>

// The path index: a small shared text file in the system's program data that records a folder for
// each host application code. One record a line, "key TAB number TAB path", ordered by keys as
// bytes. Other programs of the product read it; nothing guards it against writers at the same time.

namespace nrd::installer::core {

struct path_index_record {
    std::uint64_t value = 0; ///< this engine writes 0; what other writers put here is kept
    std::string path;        ///< UTF-8
};

using path_index = std::map<std::string, path_index_record>;

/// Takes lines as they come: missing fields are empty, a number that is none is 0, a later line of
/// the same key replaces an earlier one, and a CR at a line's end is dropped.
path_index read_path_index(std::istream& in);
void write_path_index(const path_index& index, std::ostream& out);

/// Sets one record in the file. A file that cannot be read counts as empty, and one that cannot be
/// written stays as it is. The file's folder is there: start-up makes it.
void add_path_index_entry(const misc::text32& app_code, const misc::text32& path);

/// In the folder that all users share, wherever "--prefs" points.
misc::path path_index_file();

} // namespace nrd::installer::core
