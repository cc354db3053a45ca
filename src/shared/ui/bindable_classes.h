#pragma once

namespace nrd::shared::ui {

/// Makes the bindable widgets, unbound, and the dialog known to layout files, for programs that
/// have no models.
void registerBindableClasses();

} // namespace nrd::shared::ui
