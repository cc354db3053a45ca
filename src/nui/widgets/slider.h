#pragma once

#include "nui/widgets/control_looks.h"
#include "nui/widgets/form.h"
#include "nui/widgets/widget.h"

#include <cstdint>

namespace nui {

/// A value between two limits, set with a thumb in a channel, from left to right or from the
/// bottom up. The user moves in steps from the minimum; each change raises plain_event::Activate.
class Slider : public Cloneable<Slider, Widget>, public FormItem {
public:
    Slider();

    void drawContent() override;
    bool read(NuiReader& reader) override;
    [[nodiscard]] const char* className() const override { return "Slider"; }

    [[nodiscard]] float value() const { return value_; }
    /// Between the limits; raises nothing. What is no number changes nothing.
    void setValue(float value);
    [[nodiscard]] float minimum() const { return minimum_; }
    [[nodiscard]] float maximum() const { return maximum_; }
    /// A maximum below the minimum counts as equal to it.
    void setRange(float minimum, float maximum);
    void setStep(float step) { step_ = step; }
    void setAxis(Axis axis) { axis_ = axis; }

    Color channelColor = control_color::Channel;

private:
    static void onPointer(WidgetEvent& event);
    static void onKey(WidgetEvent& event);
    /// The user wants that value, or the nearest that there is.
    void slideTo(float value);
    void press(TouchEvent& event);
    [[nodiscard]] bool keyTarget(std::int32_t key, float& target) const;
    [[nodiscard]] float share() const;
    [[nodiscard]] float smallStep() const;
    [[nodiscard]] float pageStep() const;
    [[nodiscard]] float thumbSize() const;
    /// From the channel's start, which is at the bottom of a vertical one.
    [[nodiscard]] float thumbStart() const;
    [[nodiscard]] float alongOf(const TouchEvent& event) const;
    [[nodiscard]] float room() const;

    float value_ = 0;
    float minimum_ = 0;
    float maximum_ = 100;
    float step_ = 1; ///< 0 is none: every value can be set
    Axis axis_ = Axis::X;
    float grab_ = -1; ///< where the thumb is held, from its start; negative while it is not
};

} // namespace nui
