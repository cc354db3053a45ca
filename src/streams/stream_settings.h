#pragma once

#include "misc/path.h"
#include "streams/stream.h"
#include "streams/stream_observers.h"

#include <cstdint>
#include <fstream>
#include <memory>
#include <string>

namespace nrd::streams {

/// The outputs of one stream, and what they are set to.
class stream_settings {
public:
    /// `served` outlives the settings.
    stream_settings(stream& served, std::string name) : stream_(&served), name_(std::move(name)) {}

    void set_muted(std::int32_t value);
    void set_console(bool on);
    void set_file(bool on);

    /// Empty while there is no file output.
    [[nodiscard]] const misc::path& file_path() const { return file_path_; }

private:
    void evaluate_console();
    void evaluate_file();
    void open_file();

    stream* stream_;
    std::int32_t muted_ = 0;
    bool console_enabled_ = false;
    bool file_enabled_ = false;
    std::string name_;
    std::unique_ptr<stream_observer_multiconsole> console_observer_;
    std::unique_ptr<stream_observer_os> file_observer_;
    std::ofstream file_;
    misc::path file_path_;
};

} // namespace nrd::streams
