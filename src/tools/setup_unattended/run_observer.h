#pragma once

#include "inst/installation/installer_observer.h"
#include "tools/setup_unattended/progress.h"

#include <optional>
#include <string>
#include <vector>

namespace nrd::tools {

/// Follows a real installation. It answers as the wizard does: a missing source or a folder that
/// cannot be read ends the run, a refused registry key does not.
class run_observer : public installation::installer_observer {
public:
    explicit run_observer(progress& shown) : progress_(shown) {}

    bool report(const installation::install_event& event) override;
    void decided(const installation::install_decision& decision) override;

    /// What ended the run, if the engine told.
    [[nodiscard]] const std::optional<installation::failure_decision>& failure() const
    {
        return failure_;
    }
    /// What became of an older installation that was to be moved aside, if there was one; nothing
    /// has a backup_path in it until then.
    [[nodiscard]] const installation::staging_decision& staging() const { return staging_; }
    /// Registry keys that were refused, so that what was for them is missing; each once.
    [[nodiscard]] const std::vector<std::string>& refused_keys() const { return refused_keys_; }
    /// Where shortcuts were to be made that could not be.
    [[nodiscard]] const std::vector<std::string>& refused_shortcuts() const
    {
        return refused_shortcuts_;
    }

private:
    progress& progress_;
    std::optional<installation::failure_decision> failure_;
    installation::staging_decision staging_;
    std::vector<std::string> refused_keys_; // UTF-8
    std::vector<std::string> refused_shortcuts_;
};

} // namespace nrd::tools
