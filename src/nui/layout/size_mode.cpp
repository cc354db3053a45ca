#include "nui/layout/size_mode.h"

#include "nui/engine/engine.h"

#include <cmath>
#include <optional>

namespace nui {

namespace {

/// The modes that need nothing but the display.
std::optional<float> resolveAlone(Size size)
{
    const DisplayMetrics& metrics = engine().metrics;
    switch (size.mode) {
    case Px:
        return std::floor(size.value);
    case Pt:
        return std::floor(size.value * metrics.displayScale);
    case Sp:
        return std::floor(size.value * metrics.textScale);
    case DisplayPercent:
        return size.value * static_cast<float>(metrics.smallerSide);
    default:
        return std::nullopt;
    }
}

} // namespace

float resolveEdge(Size size, float reference)
{
    if (size.mode == Percent)
        return size.value * reference;
    return resolveAlone(size).value_or(std::floor(size.value));
}

float resolveOwnSize(Size size, float fallback, float current)
{
    if (const std::optional<float> pixels = resolveAlone(size))
        return *pixels;
    if (size.mode == Percent || size.mode == Weight)
        return fallback;
    return fallback == 0 ? current : fallback;
}

} // namespace nui
