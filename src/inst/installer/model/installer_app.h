#pragma once

#include "inst/installation/spec.h"
#include "inst/installer/model/install_observer.h"
#include "inst/installer/model/periodic.h"

namespace nrd::installer::model {

/// The one object behind all pages of the wizard: what is installed, and what the main loop calls.
/// Pages and their models hold a plain pointer to it; it lives until the process ends. The first
/// spec is the main one, and all are installed. install() runs on the worker, everything else on
/// the main thread, which leaves the specs alone from the worker's start on.
class installer_app {
public:
    explicit installer_app(const installation::specs& all) : specs_(all) {}
    installer_app(const installer_app&) = delete;
    installer_app& operator=(const installer_app&) = delete;
    ~installer_app() = default;

    // Of the main spec. Without "APP_NAME" each throws std::invalid_argument.
    [[nodiscard]] misc::text32 name() const;
    [[nodiscard]] bool is_installed() const;
    [[nodiscard]] misc::text32 installed_location() const;

    /// The place for what a machine may want before an older installation is replaced. None does.
    [[nodiscard]] bool change_permissions() const;

    /// Installs every spec in its working directory; one that fails does not keep the next from
    /// being installed. Exceptions leave at once.
    void install();

    [[nodiscard]] installation::specs& get_specs() { return specs_; }
    [[nodiscard]] install_observer& get_observer() { return observer_; }

    void add_listener(periodic_listener* record) { periodic_.add_listener(record); }
    void remove_listener(const periodic_listener* record) { periodic_.remove_listener(record); }
    /// Called by the main loop on each pass.
    void run_periodic() { periodic_.run(); }

    /// What the last page tells. Never goes back to true.
    bool install_succeeded = true;

private:
    periodic periodic_;
    installation::specs specs_;
    install_observer observer_;
};

} // namespace nrd::installer::model
