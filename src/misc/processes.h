#pragma once

#include "misc/path.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace nrd::misc {

/// True if another process than this one runs a program file of that name. ".exe" is added unless
/// the name ends exactly so, and case counts.
bool process_running(std::string_view name);

/// False for a 32-bit program, true for a 64-bit one. Throws std::invalid_argument for a missing
/// file, for one that is no program, and for a program of another kind.
bool is_64bit_exe(const path& p);

struct process_entry {
    std::string file_name;
    std::uint32_t id = 0;
};

/// The platform's list; empty if it cannot be had.
std::vector<process_entry> list_processes();
std::uint32_t current_process_id();

// The kinds of a program file that matter here, by their Windows numbers.
constexpr std::uint32_t binary_type_32bit = 0;
constexpr std::uint32_t binary_type_dos = 1;
constexpr std::uint32_t binary_type_16bit = 2;
constexpr std::uint32_t binary_type_64bit = 6;

/// The kind of a program file by its Windows number; nothing if the file is no program.
std::optional<std::uint32_t> query_binary_type(const path& p);

} // namespace nrd::misc
