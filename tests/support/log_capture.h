#pragma once

#include "streams/stream.h"

#include <cstddef>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace nrd::test {

/// Collects what is written to the stream "installer" while it lives, a line each, without the
/// "file:line: " in front and the ":" that every line gets at its end.
class log_capture : public streams::stream_observer {
public:
    log_capture();
    ~log_capture() override;
    log_capture(const log_capture&) = delete;
    log_capture& operator=(const log_capture&) = delete;

    void notify(const char* stream_name, std::size_t stream_name_length, const char* text,
                std::size_t text_length) override;

    [[nodiscard]] const std::vector<std::string>& lines() const { return lines_; }
    /// All lines, each with a line feed.
    [[nodiscard]] std::string text() const;
    /// How often a line is there.
    [[nodiscard]] std::ptrdiff_t count(std::string_view line) const;
    [[nodiscard]] bool contains(std::string_view line) const { return count(line) != 0; }

private:
    std::mutex writing_; ///< a worker logs while the test's thread does
    std::vector<std::string> lines_;
};

} // namespace nrd::test
