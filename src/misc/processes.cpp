#include "misc/processes.h"

#include "misc/file_system.h"

#include <algorithm>
#include <stdexcept>

namespace nrd::misc {

bool process_running(std::string_view name)
{
    std::string file_name(name);
    if (!file_name.ends_with(".exe")) {
        file_name += ".exe";
    }
    const std::vector<process_entry> processes = list_processes();
    return std::any_of(processes.begin(), processes.end(), [&](const process_entry& process) {
        return process.file_name == file_name && process.id != current_process_id();
    });
}

bool is_64bit_exe(const path& p)
{
    if (missing(p)) {
        throw std::invalid_argument("Executable not found");
    }
    const std::optional<std::uint32_t> type = query_binary_type(p);
    if (!type) {
        throw std::invalid_argument("Not an executable");
    }
    if (*type != binary_type_32bit && *type != binary_type_64bit) {
        throw std::invalid_argument("Executable not 32 or 64 bit");
    }
    return *type == binary_type_64bit;
}

} // namespace nrd::misc
