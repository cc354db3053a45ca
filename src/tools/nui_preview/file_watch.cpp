#include "tools/nui_preview/file_watch.h"

#include "tools/nui_preview/host_path.h"

namespace nrd::tools::preview {

file_watch::file_watch(const std::vector<std::string>& files)
{
    for (const std::string& name : files) {
        files_.push_back({host_path(name), std::nullopt});
    }
    static_cast<void>(has_changed());
}

bool file_watch::has_changed()
{
    bool any = false;
    for (watched& file : files_) {
        std::error_code error;
        const auto written = std::filesystem::last_write_time(file.path, error);
        if (error) {
            continue;
        }
        // A second write within the clock's grain shows in the size at least.
        const std::uintmax_t size = std::filesystem::file_size(file.path, error);
        any = any || file.written != written || file.size != size;
        file.written = written;
        file.size = size;
    }
    return any;
}

} // namespace nrd::tools::preview
