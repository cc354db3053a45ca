#pragma once

namespace nui {

/// How far a tween is when `t` of its time has passed, both 0 to 1; some curves swing beyond.
/// A `parameter` of 0 stands for the curve's default.
using Easing = float (*)(float t, float parameter);

namespace easing {

float linear(float t, float parameter);
float zero(float t, float parameter);
float one(float t, float parameter);

// The parameter is the exponent, 2 by default; for in-out a whole number.
float powerIn(float t, float parameter);
float powerInOut(float t, float parameter);
float root(float t, float parameter);

// The parameter is a power that the curve is raised to, 1 by default.
float sineIn(float t, float parameter);
float sineOut(float t, float parameter);
float sineInOut(float t, float parameter);

// The parameter is the base, 2 by default. In-out starts at 1/2048, and its second half is of
// base 2 always.
float exponentialIn(float t, float parameter);
float exponentialOut(float t, float parameter);
float exponentialInOut(float t, float parameter);

// No parameter.
float backIn(float t, float parameter);
float backOut(float t, float parameter);
float backInOut(float t, float parameter);
float bounceIn(float t, float parameter);
float bounceOut(float t, float parameter);
float bounceInOut(float t, float parameter);
/// From 1 to 0.
float reverseBounce(float t, float parameter);

// The parameter is the period, a whole turn by default.
float elasticIn(float t, float parameter);
float elasticOut(float t, float parameter);
float elasticInOut(float t, float parameter);

} // namespace easing

} // namespace nui
