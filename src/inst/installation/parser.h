#pragma once

#include "inst/installation/spec.h"

#include <cstddef>
#include <optional>
#include <ostream>
#include <pugixml.hpp>
#include <string>
#include <vector>

// Reads install.xml. The reader is tolerant: it looks at no element's name below the sections, an
// entry is any child node, and what is missing is empty. Only the first section of a name is read.

namespace nrd::installation {

/// A fault that the XML parser found, at its place in the file that the author wrote.
struct xml_error {
    std::string description; ///< the parser's own words
    misc::path file;         ///< the install.xml or a file that it includes
    std::size_t line = 0;    ///< from 1
    std::size_t column = 0;  ///< in bytes, from 1
};

struct import_result {
    spec imported; ///< a default spec after a fault
    std::optional<xml_error> error;
};

/// Reads the file at `path`. Faults of the XML are told in the result and logged. Throws
/// std::invalid_argument for a file without the variable "APP_NAME", and std::out_of_range for an
/// #include without a quoted name.
import_result import_install_xml(const misc::path& path);

/// The same for who wants no more than the spec.
spec import_spec(const misc::path& path);

/// Where a line of preprocessed text was written.
struct line_origin {
    misc::path file;
    std::size_t line = 0; ///< from 1
};

/// Copies the file to `out` line by line and, in place of a line that begins with #include, the
/// named file, relative to the folder of the including one. A file that cannot be opened has no
/// lines. Nothing guards against a file that includes itself.
/// `origins`, if given, gets one element for each line written.
void preprocess(const misc::path& path, std::ostream& out,
                std::vector<line_origin>* origins = nullptr);

/// What stands between the first double quote and the last. Throws std::out_of_range if there is
/// none.
std::string remove_quotes(std::string text);

/// `node` is the element "installation"; an empty node gives what an empty element would.
spec parse_spec(const pugi::xml_node& node);

} // namespace nrd::installation
