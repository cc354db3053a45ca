#include "nui/animation/easing.h"

#include <cmath>
#include <numbers>

namespace nui::easing {

namespace {

constexpr float Pi = std::numbers::pi_v<float>;
constexpr float WholeTurn = 2 * Pi;

/// How far the back curves swing beyond, a tenth of the way; in-out swings further, as each
/// half has only half of the way.
constexpr float Overshoot = 1.70158F;
constexpr float InOutOvershoot = 2.5949094F;

float orDefault(float parameter, float standIn)
{
    return parameter == 0 ? standIn : parameter;
}

/// The swing of the elastic curves, from -1 to 1.
float elasticSwing(float t, float period)
{
    return std::sin(WholeTurn * (t - period / 4) / period);
}

} // namespace

float linear(float t, float /*parameter*/)
{
    return t;
}

float zero(float /*t*/, float /*parameter*/)
{
    return 0;
}

float one(float /*t*/, float /*parameter*/)
{
    return 1;
}

float powerIn(float t, float parameter)
{
    return std::pow(t, orDefault(parameter, 2));
}

float powerInOut(float t, float parameter)
{
    const float exponent = orDefault(parameter, 2);
    const float twice = 2 * t;
    if (twice < 1)
        return std::pow(twice, exponent) / 2;
    // An even power of the negative rest is positive and must be turned over.
    const float sign = std::fmod(exponent, 2.0F) == 0 ? -1.0F : 1.0F;
    return sign * (std::pow(twice - 2, exponent) + 2 * sign) / 2;
}

float root(float t, float parameter)
{
    return std::pow(t, 1 / orDefault(parameter, 2));
}

float sineIn(float t, float parameter)
{
    return std::pow(1 - std::cos(t * Pi / 2), orDefault(parameter, 1));
}

float sineOut(float t, float parameter)
{
    return std::pow(std::sin(t * Pi / 2), orDefault(parameter, 1));
}

float sineInOut(float t, float parameter)
{
    return std::pow((std::cos(t * Pi) - 1) * -0.5F, orDefault(parameter, 1));
}

float exponentialIn(float t, float parameter)
{
    return t == 0 ? 0 : std::pow(orDefault(parameter, 2), 10 * (t - 1));
}

float exponentialOut(float t, float parameter)
{
    return t == 1 ? 1 : 1 - std::pow(orDefault(parameter, 2), -10 * t);
}

float exponentialInOut(float t, float parameter)
{
    const float way = 10 * (2 * t - 1);
    if (2 * t < 1)
        return std::pow(orDefault(parameter, 2), way) / 2;
    return (2 - std::exp2(-way)) / 2;
}

float backIn(float t, float /*parameter*/)
{
    return t * t * ((Overshoot + 1) * t - Overshoot);
}

float backOut(float t, float /*parameter*/)
{
    const float s = t - 1;
    return s * s * ((Overshoot + 1) * s + Overshoot) + 1;
}

float backInOut(float t, float /*parameter*/)
{
    const float u = 2 * t;
    if (u < 1)
        return u * u * ((InOutOvershoot + 1) * u - InOutOvershoot) / 2;
    const float v = u - 2;
    return v * v * ((InOutOvershoot + 1) * v + InOutOvershoot) / 2 + 1;
}

float bounceIn(float t, float parameter)
{
    return 1 - bounceOut(1 - t, parameter);
}

float bounceOut(float t, float /*parameter*/)
{
    constexpr float Steepness = 7.5625F;
    struct Bounce {
        float end;
        float middle;
        float height;
    };
    constexpr Bounce Bounces[] = {
        {1 / 2.75F, 0, 0}, {2 / 2.75F, 0.54545456F, 0.75F}, {2.5F / 2.75F, 0.8181818F, 0.9375F}};
    constexpr Bounce Last = {1, 0.95454544F, 0.984375F};
    const Bounce* current = &Last;
    for (const Bounce& bounce : Bounces) {
        if (t < bounce.end) {
            current = &bounce;
            break;
        }
    }
    const float s = t - current->middle;
    return Steepness * s * s + current->height;
}

float bounceInOut(float t, float parameter)
{
    if (t < 0.5F)
        return (1 - bounceOut(1 - 2 * t, parameter)) / 2;
    return bounceOut(2 * t - 1, parameter) / 2 + 0.5F;
}

float reverseBounce(float t, float parameter)
{
    return bounceOut(1 - t, parameter);
}

float elasticIn(float t, float parameter)
{
    if (t == 0 || t == 1)
        return t;
    const float s = t - 1;
    return -std::exp2(10 * s) * elasticSwing(s, orDefault(parameter, WholeTurn));
}

float elasticOut(float t, float parameter)
{
    if (t == 0 || t == 1)
        return t;
    return elasticSwing(t, orDefault(parameter, WholeTurn)) * std::exp2(-10 * t) + 1;
}

float elasticInOut(float t, float parameter)
{
    if (t == 0 || t == 1)
        return t;
    const float s = 2 * t - 1;
    const float swing = elasticSwing(s, orDefault(parameter, WholeTurn));
    if (s < 0)
        return -0.5F * std::exp2(10 * s) * swing;
    return 0.5F * std::exp2(-10 * s) * swing + 1;
}

} // namespace nui::easing
