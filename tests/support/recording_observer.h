#pragma once

#include "inst/installation/installer_observer.h"

#include <functional>
#include <optional>
#include <string>

namespace nrd::test {

/// Writes down what the engine reports, and answers as it is told.
class recording_observer : public installation::installer_observer {
public:
    /// Asked at each event; without it every answer is true.
    std::function<bool(const installation::install_event&)> answer;

    bool report(const installation::install_event& event) override;
    void decided(const installation::install_decision& decision) override;

    /// The events in order, a line each: "id: argument, argument".
    [[nodiscard]] const std::string& events() const { return events_; }
    /// What the engine gave as the reason for the end of a run.
    [[nodiscard]] const std::optional<installation::failure_decision>& failure() const
    {
        return failure_;
    }

private:
    std::string events_;
    std::optional<installation::failure_decision> failure_;
};

/// As the wizard answers: a source that is missing or cannot be read ends the run, a registry key
/// that is refused does not.
bool answer_as_wizard(const installation::install_event& event);

} // namespace nrd::test
