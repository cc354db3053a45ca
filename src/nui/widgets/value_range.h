#pragma once

namespace nui {

class NuiReader;

/// The keys "minimum" and "maximum" of widgets with a number. A maximum below the minimum is
/// reported.
void readRange(NuiReader& reader, float& minimum, float& maximum);

} // namespace nui
