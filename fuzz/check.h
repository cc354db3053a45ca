#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the process, which the fuzzer takes as a finding.
inline void check(bool holds, const char* rule)
{
    if (!holds) {
        std::fprintf(stderr, "broken rule: %s\n", rule);
        std::abort();
    }
}
