#pragma once

#include "nui/animation/easing.h"
#include "nui/events/widget_events.h"

#include <cstdint>
#include <type_traits>
#include <variant>

// What a tween is described with: a list of items in any order, such as
//   {tween_item::from(), tween_item::value(&label->alpha, 0.0F), tween_item::bindTo(label)}.

namespace nui {

class CTween;

/// The numbers are the contract of recorded descriptions. Those of values stand in the order of
/// TweenValue's alternatives.
enum class TweenCode : std::uint32_t {
    Bool = 256,
    Int8 = 257,
    Uint8 = 258,
    Int16 = 259,
    Uint16 = 260,
    Int32 = 261,
    Uint32 = 262,
    Float = 263,
    From = 264,
    Once = 265,
    Loop = 266,
    PingPong = 267,
    Delay = 268,
    Relative = 269,
    EasingFunction = 270,
    EasingParameter = 271,
    OnStart = 272,
    OnEnd = 273,
    Bind = 274,
    End = 275
};

/// Called on the loop's thread.
using TweenCallback = void (*)(CTween& tween);

/// A value that a tween moves. The destination is not owned.
template <class T> struct TweenValueOf {
    T* destination = nullptr;
    T end = {};
    T start = {};
};

using TweenValue =
    std::variant<TweenValueOf<bool>, TweenValueOf<std::int8_t>, TweenValueOf<std::uint8_t>,
                 TweenValueOf<std::int16_t>, TweenValueOf<std::uint16_t>,
                 TweenValueOf<std::int32_t>, TweenValueOf<std::uint32_t>, TweenValueOf<float>>;

/// One item of a description; made by the functions of `tween_item`.
struct TweenItem {
    TweenCode code = TweenCode::End;
    std::variant<std::monostate, TweenValue, float, Easing, TweenCallback, WidgetPtr> argument;
};

namespace tween_item {

/// Moves the value to `end`. A bool switches at the very end; integers drop their fraction and
/// stop at the limits of their type.
template <class T> TweenItem value(T* destination, std::type_identity_t<T> end)
{
    const TweenValue moved = TweenValueOf<T>{destination, end};
    const auto first = static_cast<std::uint32_t>(TweenCode::Bool);
    return {static_cast<TweenCode>(first + moved.index()), moved};
}

/// The given values are where the tween starts, and the present ones where it ends.
inline TweenItem from()
{
    return {TweenCode::From, {}};
}

/// The given values are added to the present ones.
inline TweenItem relative()
{
    return {TweenCode::Relative, {}};
}

/// One run, which is the default.
inline TweenItem once()
{
    return {TweenCode::Once, {}};
}

/// Again from the start, until killed.
inline TweenItem loop()
{
    return {TweenCode::Loop, {}};
}

/// There and back, until killed.
inline TweenItem pingPong()
{
    return {TweenCode::PingPong, {}};
}

inline TweenItem delay(float seconds)
{
    return {TweenCode::Delay, seconds};
}

inline TweenItem ease(Easing function)
{
    return {TweenCode::EasingFunction, function};
}

inline TweenItem easeParameter(float parameter)
{
    return {TweenCode::EasingParameter, parameter};
}

inline TweenItem onStart(TweenCallback function)
{
    return {TweenCode::OnStart, function};
}

/// Called at each end of a loop too.
inline TweenItem onEnd(TweenCallback function)
{
    return {TweenCode::OnEnd, function};
}

/// The widget gets the tween's events. When it dies, the tween ends in silence.
inline TweenItem bindTo(const WidgetPtr& widget)
{
    return {TweenCode::Bind, widget};
}

/// What stands behind it is not read.
inline TweenItem end()
{
    return {TweenCode::End, {}};
}

} // namespace tween_item

} // namespace nui
