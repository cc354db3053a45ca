#include "streams/stream_settings.h"

#include "misc/clock.h"
#include "misc/file_system.h"
#include "misc/known_folders.h"

#include <cstdio>

namespace nrd::streams {

namespace {

/// "2026_11_14__09_47_05"; the year is as long as it is.
std::string file_name(const misc::local_time& now)
{
    char text[64];
    std::snprintf(text, sizeof(text), "%d_%02d_%02d__%02d_%02d_%02d", now.year, now.month, now.day,
                  now.hour, now.minute, now.second);
    return text;
}

} // namespace

void stream_settings::set_muted(std::int32_t value)
{
    muted_ = value;
    evaluate_console();
    evaluate_file();
}

void stream_settings::set_console(bool on)
{
    console_enabled_ = on;
    evaluate_console();
}

void stream_settings::set_file(bool on)
{
    file_enabled_ = on;
    evaluate_file();
}

void stream_settings::evaluate_console()
{
    if (muted_ != 0 || !console_enabled_) {
        stream_->detach(console_observer_.get());
        console_observer_.reset();
    } else if (console_observer_ == nullptr) {
        console_observer_ = std::make_unique<stream_observer_multiconsole>(name_);
        stream_->attach(console_observer_.get());
    }
}

void stream_settings::evaluate_file()
{
    if (muted_ != 0 || !file_enabled_) {
        stream_->detach(file_observer_.get());
        file_observer_.reset();
        file_.close();
        file_path_.clear();
        return;
    }
    if (file_observer_ != nullptr) {
        return;
    }
    open_file();
    if (file_.is_open()) {
        file_observer_ = std::make_unique<stream_observer_os>(file_);
        stream_->attach(file_observer_.get());
    }
}

void stream_settings::open_file()
{
    if (file_.is_open()) {
        return;
    }
    misc::path folder = misc::get_settings_folder() / "Tavrolen Corporation" / "log";
    if (misc::missing(folder)) {
        return;
    }
    folder /= misc::to_path(std::string_view(name_));
    if (misc::missing(folder)) {
        return;
    }
    // Two runs in one second share a file.
    const misc::path file = folder / misc::to_path(file_name(misc::get_local_time()));
    file_ = misc::open_for_appending(file);
    if (file_.is_open()) {
        file_path_ = file;
    }
}

} // namespace nrd::streams
