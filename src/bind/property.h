#pragma once

#include "bind/signal.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <utility>

namespace nrd::bind {

template <class T> [[nodiscard]] bool isSameValue(const T& one, const T& other)
{
    return one == other;
}

/// Relative, with a floor of 1: near zero, differences below the epsilon are lost. A difference
/// that isn't finite is one: progress runs from 0 to infinity and back to 1 when nothing is
/// counted.
[[nodiscard]] inline bool isSameValue(float one, float other)
{
    const float difference = std::abs(one - other);
    return one == other || (std::isfinite(difference) &&
                            difference <= std::max({1.0F, std::abs(one), std::abs(other)}) *
                                              std::numeric_limits<float>::epsilon());
}

/// A value of a model that widgets can be bound to. It must outlive them. Main thread only.
template <class T> class property {
public:
    property() = default;
    explicit property(T value) : current_(std::move(value)) {}
    property(const property&) = delete;
    property& operator=(const property&) = delete;
    ~property() = default;

    /// The default, as long as there is one and the property isn't explicit; else what was set.
    [[nodiscard]] const T& get() const
    {
        return explicitValue_ || !hasDefault_ ? current_ : defaultValue_;
    }

    /// Stored in any case; told only if what get() answers has changed. With a default in force
    /// it has not.
    void set(const T& value)
    {
        change([&] { current_ = value; });
    }

    void setDefault(const T& value)
    {
        change([&] {
            defaultValue_ = value;
            hasDefault_ = true;
        });
    }

    /// Lets what was set count although there is a default.
    void setExplicit(bool isExplicit)
    {
        if (isExplicit == explicitValue_)
            return;
        change([&] { explicitValue_ = isExplicit; });
        stateChanged.emit();
    }

    [[nodiscard]] bool isExplicit() const { return explicitValue_; }

    signal changed;        ///< get() answers something else
    signal stateChanged;   ///< explicit or not
    std::string boundName; ///< id of the widget that was bound last

private:
    template <class Change> void change(Change apply)
    {
        const T before = get();
        apply();
        if (!isSameValue(before, get()))
            changed.emit();
    }

    bool explicitValue_ = false;
    T defaultValue_ = {};
    bool hasDefault_ = false;
    T current_ = {};
};

} // namespace nrd::bind
