#pragma once

namespace nrd::vs_installer {

/// Whether the stored settings of an earlier installation name a cutter that this version no longer
/// serves. No stored settings are read so far, so none is found.
bool has_obsolete_cutter();

} // namespace nrd::vs_installer
