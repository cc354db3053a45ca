#pragma once

#include <ratio>

namespace nrd::shared::ui {

struct length_tag {};
struct metric {};

/// A quantity of the kind `Tag`, counted in `Ratio` of the system's base unit, which for lengths
/// is the metre.
template <class Tag, class System, class Ratio> class unit {
public:
    constexpr unit() = default;
    constexpr explicit unit(double value) : value_(value) {}

    /// So many of another unit, of which each is `scale` base units.
    [[nodiscard]] static constexpr unit from(double value, double scale)
    {
        return unit(value * scale / OwnScale);
    }
    /// The number of such other units.
    [[nodiscard]] constexpr double in(double scale) const { return value_ * OwnScale / scale; }
    [[nodiscard]] constexpr double value() const { return value_; }

    bool operator==(const unit&) const = default;

private:
    static constexpr double OwnScale = static_cast<double>(Ratio::num) / Ratio::den;

    double value_ = 0;
};

using millimetres = unit<length_tag, metric, std::ratio<1, 1000>>;

} // namespace nrd::shared::ui
