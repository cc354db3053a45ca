#pragma once

namespace nrd::shared::ui {

/// Makes the bindable widgets known to layout files, unbound, for programs that have no models.
void registerBindableClasses();

} // namespace nrd::shared::ui
