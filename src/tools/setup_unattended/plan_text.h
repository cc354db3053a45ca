#pragma once

#include "tools/setup_unattended/install_plan.h"

#include <ostream>

namespace nrd::tools {

/// The plan for a person, as UTF-8: a table for each kind of thing, with what is left out and why.
void print_plan(const install_plan& plan, std::ostream& out);

} // namespace nrd::tools
