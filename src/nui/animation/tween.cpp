#include "nui/animation/tween.h"

#include "nui/events/dispatch.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <type_traits>
#include <utility>

namespace nui {

namespace {

/// Integers lose the fraction and stop at the limits of their type: curves that swing beyond
/// their end would wrap around otherwise.
template <class T> T fromFloat(float value)
{
    if constexpr (std::is_floating_point_v<T>)
        return value;
    using Limits = std::numeric_limits<T>;
    if (!(value > static_cast<float>(Limits::min())))
        return Limits::min();
    return value < static_cast<float>(Limits::max()) ? static_cast<T>(value) : Limits::max();
}

template <class T> T between(T start, T end, float eased)
{
    // Said apart, since a float's rounding could miss the end by a hair.
    if (eased == 1)
        return end;
    if constexpr (std::is_same_v<T, bool>)
        return start;
    const auto from = static_cast<float>(start);
    return fromFloat<T>(from + (static_cast<float>(end) - from) * eased);
}

/// Integers wrap around, so that unsigned values can be moved down as well.
template <class T> T sum(T first, T second)
{
    if constexpr (std::is_same_v<T, bool>)
        return first || second;
    else if constexpr (std::is_floating_point_v<T>)
        return first + second;
    else
        return static_cast<T>(static_cast<std::uint32_t>(first) +
                              static_cast<std::uint32_t>(second));
}

} // namespace

CTween::CTween(float durationSeconds, std::span<const TweenItem> items) : duration_(durationSeconds)
{
    for (const TweenItem& item : items) {
        if (item.code == TweenCode::End)
            break;
        read(item);
    }
}

void CTween::read(const TweenItem& item)
{
    switch (item.code) {
    case TweenCode::From:
        toValues_ = false;
        break;
    case TweenCode::Once:
    case TweenCode::Loop:
    case TweenCode::PingPong:
        mode_ = item.code;
        break;
    case TweenCode::Delay:
        delay_ = std::get<float>(item.argument);
        break;
    case TweenCode::Relative:
        relative_ = true;
        break;
    case TweenCode::EasingFunction:
        easing_ = std::get<Easing>(item.argument);
        break;
    case TweenCode::EasingParameter:
        easingParameter_ = std::get<float>(item.argument);
        break;
    case TweenCode::OnStart:
        onStart_ = std::get<TweenCallback>(item.argument);
        break;
    case TweenCode::OnEnd:
        onEnd_ = std::get<TweenCallback>(item.argument);
        break;
    case TweenCode::Bind:
        target_ = std::get<WidgetPtr>(item.argument);
        bound_ = true;
        break;
    default:
        values_.push_back(std::get<TweenValue>(item.argument));
    }
}

bool CTween::step(float delta)
{
    // Held while the step lasts, as the values may be the widget's.
    const WidgetPtr target = target_.lock();
    if (done_ || (bound_ && !target))
        return true;
    elapsed_ += delta;
    if (delay_ > elapsed_)
        return false;
    // A duration of 0 gives infinity, and in the very first step, whose delta is 0, no number at
    // all: both are the end.
    float t = (elapsed_ - static_cast<float>(loopsDone_) * duration_ - delay_) / duration_;
    const bool atEnd = !(t < 1);
    if (atEnd && mode_ == TweenCode::Once) {
        t = 1;
    } else if (atEnd) {
        ++loopsDone_;
        t = std::isfinite(t) ? t - std::trunc(t) : 0;
    }
    float eased = easing_(t, easingParameter_);
    if (mode_ == TweenCode::PingPong && loopsDone_ % 2 == 1)
        eased = 1 - eased;

    if (!started_)
        start(target);
    // Whoever was told of the start has killed the tween, or runs the loop right now.
    if (!prepared_)
        return killed_;
    writeValues(eased);
    if (!atEnd)
        return false;
    done_ = mode_ == TweenCode::Once;
    notify(onEnd_, target, tween_event::Ended,
           done_ ? TweenEvent::Kind::Done : TweenEvent::Kind::Looped);
    return done_;
}

void CTween::start(const WidgetPtr& target)
{
    started_ = true;
    notify(onStart_, target, tween_event::Started, TweenEvent::Kind::Started);
    if (killed_)
        return;
    prepareValues();
    prepared_ = true;
}

void CTween::prepareValues()
{
    for (TweenValue& moved : values_) {
        std::visit(
            [this](auto& value) {
                value.start = *value.destination;
                if (relative_)
                    value.end = sum(value.start, value.end);
                if (!toValues_)
                    std::swap(value.start, value.end);
            },
            moved);
    }
}

void CTween::writeValues(float eased)
{
    for (const TweenValue& moved : values_)
        std::visit(
            [eased](const auto& value) {
                *value.destination = between(value.start, value.end, eased);
            },
            moved);
}

void CTween::notify(TweenCallback callback, const WidgetPtr& target, EventType type,
                    TweenEvent::Kind kind)
{
    if (callback != nullptr)
        callback(*this);
    if (!target)
        return;
    TweenEvent event(type, shared_from_this(), kind);
    dispatch(*target, event, Phase::AtTarget);
}

bool TweenManager::update(float delta)
{
    bool running = false;
    for (next_ = 0; next_ < tweens_.size();) {
        const std::shared_ptr<CTween> tween = tweens_[next_++];
        if (tween->done_ || tween->paused_)
            continue;
        running = running || tween->started_;
        if (tween->step(delta))
            remove(*tween);
    }
    return running;
}

void TweenManager::kill(const std::shared_ptr<CTween>& tween)
{
    if (!tween)
        return;
    tween->killed_ = true;
    remove(*tween);
}

void TweenManager::clear()
{
    for (const std::shared_ptr<CTween>& tween : tweens_)
        tween->killed_ = true;
    tweens_.clear();
    next_ = 0;
}

void TweenManager::remove(const CTween& tween)
{
    const auto found =
        std::ranges::find(tweens_, &tween, [](const auto& held) { return held.get(); });
    if (found == tweens_.end())
        return;
    const auto place = static_cast<std::size_t>(found - tweens_.begin());
    tweens_.erase(found);
    if (place < next_)
        --next_;
}

std::shared_ptr<CTween> createTween(TweenManager& manager, float durationSeconds,
                                    std::span<const TweenItem> items)
{
    auto tween = std::make_shared<CTween>(durationSeconds, items);
    manager.add(tween);
    return tween;
}

std::shared_ptr<CTween> createTween(TweenManager& manager, float durationSeconds,
                                    std::initializer_list<TweenItem> items)
{
    return createTween(manager, durationSeconds, std::span(items.begin(), items.size()));
}

} // namespace nui
