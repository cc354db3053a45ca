#include "tools/setup_unattended/run_observer.h"

namespace nrd::tools {

bool run_observer::report(const installation::install_event& event)
{
    if (event.id == "installing") {
        progress_.next(misc::to_utf8(event.args.at(0)));
    } else if (event.id == "not_running_as_admin" || event.id == "reg_key_does_not_exist") {
        ++refused_keys_;
    }
    return event.id != "in_file_does_not_exist" && event.id != "failed_to_copy";
}

void run_observer::decided(const installation::install_decision& decision)
{
    if (const auto* failure = std::get_if<installation::failure_decision>(&decision)) {
        failure_ = *failure;
    } else if (const auto* staging = std::get_if<installation::staging_decision>(&decision)) {
        backup_path_ = staging->backup_path;
    }
}

} // namespace nrd::tools
