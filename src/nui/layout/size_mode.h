#pragma once

#include <cstdint>

namespace nui {

/// The unit of a size or an edge. The numbers are part of the layout format's contract: one of
/// them is compared with a size's value.
enum SizeMode : std::int32_t {
    Px = 0,
    Pt = 1,             ///< times the display scale
    Sp = 2,             ///< times the text scale
    Percent = 3,        ///< "%", of a reference size; 1.0 is all of it
    DisplayPercent = 4, ///< "%s", of the display's smaller side; 1.0 is all of it
    Weight = 5,         ///< "?", a share of the room that is left in the parent
    Content = 6,        ///< measured from what is inside
    Small = 7,
    Medium = 8,
    Large = 9
};

struct Size {
    float value = 0;
    SizeMode mode = Px;
};

/// Pixels of an edge or of a text box, against a reference size; modes without a rule of their
/// own count as pixels.
float resolveEdge(Size size, float reference);

/// Pixels of a widget's own width or height. Percent, weights and whatever its class must
/// measure have no answer here: they give the fallback, but the latter leave `current` as it is
/// when the fallback is exactly 0.
float resolveOwnSize(Size size, float fallback, float current);

} // namespace nui
