#pragma once

#include "inst/installation/spec.h"
#include "misc/path.h"

namespace nrd::vs_installer {

/// Opens the wizard and drives it until the toolkit quits. `data_dir` holds the layout files, the
/// language table, pictures and fonts. The window stays with the engine until the process ends.
/// Once, on the main thread, with SDL's video running. Nothing is caught: without its layout the
/// wizard ends in missing_widget, and a broken language table throws.
void run_wizard(const misc::path& data_dir, const installation::specs& specs);

} // namespace nrd::vs_installer
