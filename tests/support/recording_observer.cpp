#include "support/recording_observer.h"

namespace nrd::test {

bool recording_observer::report(const installation::install_event& event)
{
    events_ += event.id;
    const char* before = ": ";
    for (const misc::text32& arg : event.args) {
        events_ += before + misc::to_utf8(arg);
        before = ", ";
    }
    events_ += event.code == 0 ? "\n" : " code " + std::to_string(event.code) + "\n";
    return !answer || answer(event);
}

void recording_observer::decided(const installation::install_decision& decision)
{
    if (const auto* const failure = std::get_if<installation::failure_decision>(&decision)) {
        failure_ = *failure;
    }
}

bool answer_as_wizard(const installation::install_event& event)
{
    return event.id != "in_file_does_not_exist" && event.id != "failed_to_copy";
}

} // namespace nrd::test
