#include "inst/installer/model/installing_tab_model.h"

#include "inst/installation/install_utils.h"
#include "inst/installer/model/installer_app.h"
#include "misc/file_system.h"
#include "streams/installer_log.h"

#include <chrono>

namespace nrd::installer::model {

installing_tab_model::installing_tab_model(installer_app& shared) : app(&shared)
{
    for (const installation::spec& each : app->get_specs()) {
        const misc::scoped_current_path folder(each.working_directory);
        total_files_ += static_cast<std::int32_t>(installation::count_files(each.packages, "win"));
    }
    installer_log("Total files calculated.");
}

void installing_tab_model::start()
{
    installer_log("Installing tab start install.");
    worker_ = std::async(std::launch::async, [shared = app] { shared->install(); });
}

bool installing_tab_model::update()
{
    const installation::install_event last = app->get_observer().last_event();
    const std::string name =
        last.id == "installing" && !last.args.empty() ? misc::to_utf8(last.args.front()) : "";
    if (last.id == "installing" && name != current_file_) {
        show_file(name);
    } else if (last.id == "in_file_does_not_exist" || last.id == "failed_to_copy") {
        installer_log("File missing or failed to coppy..");
        app->install_succeeded = false;
    }
    return has_ended();
}

void installing_tab_model::show_file(const std::string& name)
{
    file_name.set(name);
    const auto done = static_cast<float>(app->get_observer().files_done());
    const float value = done / static_cast<float>(total_files_);
    // Nothing counted and nothing done is no number; something done then is infinity, and stays.
    progress.set(value > 0 ? value : 0);
    current_file_ = name;
}

bool installing_tab_model::has_ended()
{
    if (!worker_.valid() ||
        worker_.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready) {
        return false;
    }
    installer_log("Installing install finished.");
    worker_.get();
    progress.set(1);
    return true;
}

} // namespace nrd::installer::model
