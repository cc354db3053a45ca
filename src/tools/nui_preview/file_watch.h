#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace nrd::tools::preview {

/// Notices that files were written anew. A file that is gone has not changed: editors take it
/// away for a moment while they save.
class file_watch {
public:
    explicit file_watch(const std::vector<std::string>& files);

    /// Whether one of them changed since this was asked last, or since the watch began.
    [[nodiscard]] bool has_changed();

private:
    struct watched {
        std::filesystem::path path;
        std::optional<std::filesystem::file_time_type> written;
        std::uintmax_t size = 0;
    };

    std::vector<watched> files_;
};

} // namespace nrd::tools::preview
