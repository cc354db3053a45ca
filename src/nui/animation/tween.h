#pragma once

#include "nui/animation/easing.h"
#include "nui/animation/tween_item.h"
#include "nui/events/widget_events.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <span>
#include <vector>

namespace nui {

/// Moves values in memory from a start to an end along a curve, in step with the run loop. Held
/// by its manager until it has ended; the values must live as long, which binding it to the
/// widget that has them ensures. For the loop's thread.
class CTween : public std::enable_shared_from_this<CTween> {
public:
    /// Seconds of one run. See createTween.
    CTween(float durationSeconds, std::span<const TweenItem> items);

    /// A paused tween stands still and keeps no fast frames up.
    void setPaused(bool paused) { paused_ = paused; }
    [[nodiscard]] bool isPaused() const { return paused_; }
    /// The delay is over, and values move.
    [[nodiscard]] bool isStarted() const { return started_; }
    /// It came to its end; never true of loops.
    [[nodiscard]] bool isDone() const { return done_; }
    [[nodiscard]] bool isKilled() const { return killed_; }

private:
    friend class TweenManager;

    /// Advances by `delta` seconds; true when the manager can let it go.
    bool step(float delta);
    void read(const TweenItem& item);
    void start(const WidgetPtr& target);
    void prepareValues();
    void writeValues(float eased);
    void notify(TweenCallback callback, const WidgetPtr& target, EventType type,
                TweenEvent::Kind kind);

    float duration_;
    float delay_ = 0;
    bool relative_ = false;
    TweenCode mode_ = TweenCode::Once;
    Easing easing_ = easing::linear;
    float easingParameter_ = 0;
    TweenCallback onStart_ = nullptr;
    TweenCallback onEnd_ = nullptr;
    bool bound_ = false;
    std::weak_ptr<Widget> target_;
    bool toValues_ = true; ///< false: what was given are the starts
    float elapsed_ = 0;
    bool killed_ = false;
    bool done_ = false;
    bool started_ = false;
    bool prepared_ = false; ///< the starts have been read
    bool paused_ = false;
    std::uint32_t loopsDone_ = 0;
    std::vector<TweenValue> values_;
};

/// The running tweens, in the order of their creation. Callbacks and listeners may create and
/// kill tweens, and run the loop, while they are being advanced.
class TweenManager {
public:
    TweenManager() = default;
    TweenManager(const TweenManager&) = delete;
    TweenManager& operator=(const TweenManager&) = delete;
    ~TweenManager() = default;

    void add(std::shared_ptr<CTween> tween) { tweens_.push_back(std::move(tween)); }
    /// Advances all by `delta` seconds. True if one of them had already started before.
    bool update(float delta);
    /// Ends the tween where it stands, without an event. Null and ended ones are ignored.
    void kill(const std::shared_ptr<CTween>& tween);
    void clear();
    [[nodiscard]] std::size_t size() const { return tweens_.size(); }

private:
    void remove(const CTween& tween);

    std::vector<std::shared_ptr<CTween>> tweens_;
    std::size_t next_ = 0; ///< place of the one that is advanced next; removals move it
};

/// Makes a tween and hands it to the manager. It begins with the next update. Values are read
/// when its delay is over, not now.
std::shared_ptr<CTween> createTween(TweenManager& manager, float durationSeconds,
                                    std::span<const TweenItem> items);
std::shared_ptr<CTween> createTween(TweenManager& manager, float durationSeconds,
                                    std::initializer_list<TweenItem> items);

} // namespace nui
