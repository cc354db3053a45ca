#include "inst/installer/model/install_observer.h"

#include "misc/text.h"

#include <iostream>

namespace nrd::installer::model {

bool install_observer::report(const installation::install_event& event)
{
    std::cout << "id:" << event.id << " args:\n";
    for (const misc::text32& argument : event.args) {
        std::cout << misc::to_utf8(argument) << '\n';
    }
    const std::scoped_lock lock(mutex_);
    if (event.id == "installing") {
        ++files_done_;
    }
    last_event_ = event;
    return event.id != "in_file_does_not_exist" && event.id != "failed_to_copy";
}

installation::install_event install_observer::last_event() const
{
    const std::scoped_lock lock(mutex_);
    return last_event_;
}

std::int32_t install_observer::files_done() const
{
    const std::scoped_lock lock(mutex_);
    return files_done_;
}

} // namespace nrd::installer::model
