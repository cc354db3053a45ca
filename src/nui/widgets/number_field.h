#pragma once

#include "nui/widgets/container.h"

#include <cstdint>
#include <limits>
#include <string>

namespace nui {

class TextField;

/// A number between limits, typed or stepped by arrow keys, wheel and two arrows, with a unit
/// behind it. What is typed counts when Return or the loss of the keyboard commits it, with as
/// many decimals as are shown; what is no number is taken back. A commit or step that changes the
/// value raises plain_event::Activate. Its parts are children: "field", "unit" and the arrows, its
/// own ones unless the layout file gives the former two.
class NumberField : public Cloneable<NumberField, Container> {
public:
    NumberField();

    void drawContent() override;
    void drawChildren(Point position) override;
    bool read(NuiReader& reader) override;
    void reloadText() override;
    [[nodiscard]] const char* className() const override { return "NumberField"; }

    [[nodiscard]] float value() const { return value_; }
    /// Between the limits, with all its decimals; raises nothing. An equal value leaves also what
    /// is being typed; what is no number changes nothing.
    void setValue(float value);
    /// A maximum below the minimum counts as equal to it.
    void setRange(float minimum, float maximum);
    void setStep(float step) { step_ = step; }
    /// From 0 to 9.
    void setDecimals(std::uint32_t decimals);
    /// A language key or text.
    void setUnit(const std::string& key);
    [[nodiscard]] std::string shownUnit() const;

    /// So many steps, by the user; what is being typed is committed before.
    void stepBy(float steps);
    /// Takes over what is being typed.
    void commit();
    /// Gives the keyboard to the text.
    void focusText() const;

private:
    static void onKey(WidgetEvent& event);
    static void onFocusLost(WidgetEvent& event);
    static void onWheel(WidgetEvent& event);
    static void onFocus(WidgetEvent& event);
    void ensureParts();
    [[nodiscard]] TextField* field() const;
    /// Answers whether it is another value.
    bool storeValue(double value);
    void setByUser(double value);
    void showValue();
    void showUnit();
    [[nodiscard]] bool handleKey(std::int32_t key);

    float value_ = 0;
    float minimum_ = std::numeric_limits<float>::lowest();
    float maximum_ = std::numeric_limits<float>::max();
    float step_ = 1;
    std::uint32_t decimals_ = 0;
    std::string unitKey_;
};

} // namespace nui
