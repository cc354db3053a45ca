#pragma once

#include "vs/core/settings_store.h"

#include <string>
#include <string_view>
#include <vector>

namespace nrd::vs_installer {

/// Whether the stored settings of an earlier installation name a cutter that this version no longer
/// serves. Reads them anew each time. Throws for a file with broken JSON.
bool has_obsolete_cutter();

/// By the first six characters of the model; case counts.
bool is_obsolete_model(std::string_view text);
bool any_obsolete_key(const vs::option_settings& settings);
bool any_obsolete_model(const std::vector<std::string>& models);

} // namespace nrd::vs_installer
