#pragma once

#include "tools/setup_unattended/install_plan.h"

#include <nlohmann/json.hpp>

namespace nrd::tools {

/// The plan for machines; texts are UTF-8, paths as Windows writes them.
nlohmann::ordered_json plan_to_json(const install_plan& plan);

} // namespace nrd::tools
