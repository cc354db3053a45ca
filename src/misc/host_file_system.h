#pragma once

#include "misc/path.h"

#include <boost/filesystem/path.hpp>
#include <boost/system/error_code.hpp>

// What file_system.cpp asks of the platform: where a path of the machine lies for the host's own
// file system, and the few things in which hosts differ.

namespace nrd::misc {

using boost::system::error_code;

/// The path as the host takes it. Components are found without regard to case; what does not exist
/// yet keeps the case in which it was written. An empty path stays empty.
boost::filesystem::path to_host(const path& p);

/// The machine's path of a file that the host knows.
path from_host(const boost::filesystem::path& host);

/// A file name as a directory of the host lists it.
path from_host_name(const boost::filesystem::path& name);

/// A path of the machine, unresolved, in the library's own path type, and its text as UTF-8: how
/// errors carry it.
boost::filesystem::path as_error_path(const path& p);
std::string error_path_text(const boost::filesystem::path& p);

/// An error if this machine forbids changes at `p`, beyond what the host itself will refuse.
error_code change_refusal(const path& p);
/// The same for replacing the content of a file, which a read-only file does not allow. `host` is
/// to_host(p), which may take long to find.
error_code overwrite_refusal(const path& p, const boost::filesystem::path& host);

// What the host would refuse a change for, asked without making it.

/// Making something of this name, where nothing is.
error_code name_refusal(const path& p);
/// Of a file, replacing its content; of a folder, making something in it.
error_code write_refusal(const path& p);
/// Moving a file, or a folder with all that is in it, elsewhere.
error_code move_refusal(const path& p);

/// Takes off a file what makes the host refuse to remove it although its folder allows it.
void make_removable(const path& p);

/// The system's text for a code, as UTF-8; success has a text too.
std::string error_message(const error_code& ec);

} // namespace nrd::misc
