#pragma once

namespace nrd::tools::preview {

/// Makes the classes of the wizard's window, pages and dialogs known to layout files, as plain
/// screens and containers without models. Their texts are completed as the wizard completes them,
/// for a sample product. To be called ahead of the registration of the shared widgets, whose
/// dialog it replaces.
void register_wizard_stand_ins();

} // namespace nrd::tools::preview
