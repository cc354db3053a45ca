#pragma once

#include "bind/property.h"

#include <cstdint>
#include <future>
#include <string>

namespace nrd::installer::model {

class installer_app;

/// The install as its page sees it: polled on the main thread while a worker runs. The worker
/// knows the app's observer only. The destructor waits for the worker.
class installing_tab_model {
public:
    /// Counts the files of all specs, each in its working directory. What an install will not copy
    /// counts too, so the bar may end early.
    explicit installing_tab_model(installer_app& shared);
    installing_tab_model(const installing_tab_model&) = delete;
    installing_tab_model& operator=(const installing_tab_model&) = delete;
    virtual ~installing_tab_model() = default;

    /// Returns at once.
    virtual void start();
    /// Once per drawn frame; takes a millisecond while the worker runs. True when it has ended,
    /// once. Rethrows what the worker threw.
    virtual bool update();

    bind::property<float> progress; ///< 0 to 1, and above if more is copied than was counted
    bind::property<std::string> file_name;
    installer_app* app;

private:
    void show_file(const std::string& name);
    bool has_ended();

    std::future<void> worker_; ///< without state until the start, and after the end
    std::string current_file_;
    std::int32_t total_files_ = 0;
};

} // namespace nrd::installer::model
