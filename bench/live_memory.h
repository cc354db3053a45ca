#pragma once

#include <cstddef>

namespace bench {

/// Starts counting at what is allocated now.
void reset_peak_memory();

/// Bytes by which the memory in use rose at most since then.
std::size_t peak_memory();

/// Allocations since the program began.
std::size_t allocation_count();

} // namespace bench
