#include "tools/setup_unattended/run_observer.h"

#include <algorithm>

namespace nrd::tools {

bool run_observer::report(const installation::install_event& event)
{
    if (event.id == "installing") {
        progress_.next(misc::to_utf8(event.args.at(0)));
    }
    return event.id != "in_file_does_not_exist" && event.id != "failed_to_copy";
}

void run_observer::decided(const installation::install_decision& decision)
{
    if (const auto* failure = std::get_if<installation::failure_decision>(&decision)) {
        failure_ = *failure;
    } else if (const auto* staging = std::get_if<installation::staging_decision>(&decision)) {
        staging_ = *staging;
    } else if (const auto* shortcut = std::get_if<installation::shortcut_decision>(&decision)) {
        if (shortcut->verdict == installation::shortcut_verdict::refused) {
            refused_shortcuts_.push_back(misc::to_utf8(shortcut->location));
        }
    } else if (const auto* refused = std::get_if<installation::refused_key_decision>(&decision)) {
        const std::string key = misc::to_utf8(refused->key);
        if (std::find(refused_keys_.begin(), refused_keys_.end(), key) == refused_keys_.end()) {
            refused_keys_.push_back(key);
        }
    }
}

} // namespace nrd::tools
