#pragma once

#include "inst/installation/spec.h"

#include <ostream>
#include <pugixml.hpp>

// Writes a spec in the form that the import reads, as UTF-8 with one tab for each level. Values
// stand as they are stored. Left out by the format: create_folders, binary_data, and the working
// directory, which an import takes from the file's place.

namespace nrd::installation {

pugi::xml_document to_document(const spec& s);

void export_spec(const spec& s, std::ostream& out);

/// False if the file cannot be written.
bool save_spec(const spec& s, const misc::path& path);

} // namespace nrd::installation
