#pragma once

#include "inst/installation/installer_observer.h"

#include <cstdint>
#include <mutex>

namespace nrd::installer::model {

/// What the worker of an install leaves for the page that shows it. The worker reports, the main
/// thread polls; the lock is held for a copy only.
class install_observer : public installation::installer_observer {
public:
    /// On the worker. False, which stops the run, for a file that is missing or was not copied.
    /// Each report is also printed to standard output.
    bool report(const installation::install_event& event) override;

    // From any thread.
    [[nodiscard]] installation::install_event last_event() const;
    /// How often "installing" was reported.
    [[nodiscard]] std::int32_t files_done() const;

private:
    installation::install_event last_event_;
    mutable std::mutex mutex_;
    std::int32_t files_done_ = 0;
};

} // namespace nrd::installer::model
