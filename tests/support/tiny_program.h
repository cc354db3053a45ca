#pragma once

#include "tools/sample_machine/tiny_program.h"

namespace nrd::test {

using sample_machine::tiny_program;

} // namespace nrd::test
