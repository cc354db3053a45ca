#pragma once

#include "inst/installation/spec.h"

#include <string>

namespace nrd::test {

/// All that a spec holds but its working directory, unexpanded, one line for each record.
std::string spec_text(const installation::spec& s);

/// The lines of one package.
std::string package_text(const installation::package& pack);

} // namespace nrd::test
