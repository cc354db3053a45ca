#pragma once

#include "misc/host_file_system.h"
#include "misc/path.h"

#include <boost/filesystem/exception.hpp>
#include <boost/filesystem/file_status.hpp>
#include <cstdint>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The file operations that the program uses. Each works on the machine, or, while changes are only
// planned (misc/planned_changes.h), on the record of the plan. A relative path counts from the
// process's current directory; an empty one names nothing.

namespace nrd::misc {

using boost::filesystem::file_status;
using boost::filesystem::file_type;
using boost::filesystem::filesystem_error;

/// Never throws: what cannot be asked has the type status_error.
file_status status(const path& p);
file_status symlink_status(const path& p);

/// True if the status is an error or "not found"; the two count the same everywhere.
bool missing(const path& p);
bool is_directory(const path& p);

/// The paths of a folder's entries, ordered by upper-cased names; one level deep.
/// Throws filesystem_error if the folder cannot be read.
std::vector<path> directory_entries(const path& folder);

/// The number of entries below `folder`, at all levels, that are not directories.
/// Throws filesystem_error. Symbolic links are counted and not followed.
std::size_t count_files_below(const path& folder);

/// In bytes; 0 for what is no readable file.
std::uint64_t file_size(const path& p);

/// Bytes that the user may still use on the volume of `p`, or of the nearest parent that exists.
std::optional<std::uint64_t> free_space(const path& p);

void create_directories(const path& p, error_code& ec);
/// Throws filesystem_error.
void create_directories(const path& p);

/// For a change that is only planned: why a file, or a folder, could not be made at `p`, in so far
/// as the machine can be asked without being changed.
error_code foreseen_refusal(const path& p, file_type made);

void copy_file(const path& from, const path& to, error_code& ec);
void copy_symlink(const path& from, const path& to, error_code& ec);
/// For what is neither a regular file nor a link.
void copy_special(const path& from, const path& to, error_code& ec);
void rename(const path& from, const path& to, error_code& ec);
/// Removes a file or an empty folder; what is not there is no error.
void remove(const path& p, error_code& ec);
/// Removes a whole tree, read-only files included.
void remove_all(const path& p, error_code& ec);

/// Absolute, with symbolic links resolved, preferred separators and none at the end.
/// Throws filesystem_error if `p` does not exist.
path canonical(const path& p);
path absolute(const path& p);

/// The path in the form in which all spellings of it are equal: absolute, in upper case, with
/// single backslashes and none at the end, "." and ".." followed without asking what is there.
std::u16string path_key(const path& p);
/// For such forms, of paths or of registry keys: whether `key` lies somewhere in `folder`. In an
/// empty one lies nothing.
bool lies_in(std::u16string_view key, std::u16string_view folder);
/// The same, or `folder` itself.
bool is_or_lies_in(std::u16string_view key, std::u16string_view folder);

/// Where the path lies for the host, as UTF-8: for libraries that open files themselves.
std::string host_path_text(const path& p);

path current_path();
/// Throws filesystem_error.
void current_path(const path& p);

/// What becomes of a line feed in a file that is written.
enum class line_ends {
    system, ///< the system's own end of a line: CR LF on Windows
    as_written,
};

/// As bytes.
std::ifstream open_for_reading(const path& p);
/// Truncating. A stream that is not open means that the file cannot be written.
std::ofstream open_for_writing(const path& p, line_ends ends = line_ends::system);
/// With the system's line ends; others may read and write the file meanwhile.
std::ofstream open_for_appending(const path& p);

/// One sentence, as UTF-8: what was tried, on which path, and the system's reason.
std::string describe(const filesystem_error& error);

/// Makes `folder` the current directory while it lives; an empty path changes nothing.
class scoped_current_path {
public:
    /// Throws filesystem_error.
    explicit scoped_current_path(const path& folder);
    ~scoped_current_path();
    scoped_current_path(const scoped_current_path&) = delete;
    scoped_current_path& operator=(const scoped_current_path&) = delete;

private:
    path before_;
};

} // namespace nrd::misc
