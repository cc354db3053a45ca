#pragma once

#include "nui/widgets/widget.h"

namespace nui {

/// Two arrows, one above the other, that step the NumberField around them, on and on while one is
/// held down.
class NumberStepper : public Cloneable<NumberStepper, Widget> {
public:
    NumberStepper();

    void drawContent() override;
    [[nodiscard]] const char* className() const override { return "NumberStepper"; }

private:
    static void onPress(WidgetEvent& event);
    static void onRelease(WidgetEvent& event);
    static void onTimer(WidgetEvent& event);
    void step(std::uint64_t nextDelay);

    float direction_ = 0; ///< of the arrow that is held down; 0 for none
};

} // namespace nui
