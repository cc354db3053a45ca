#pragma once

#include <filesystem>

/// A machine folder of the process's own, in memory where the system has such a place; gone with
/// the process. It is the machine that misc works on from the first call on.
const std::filesystem::path& scratch_machine();
