#pragma once

#include "nui/widgets/container.h"

#include <array>
#include <cstddef>
#include <string>

namespace nui {

class TextField;

/// An address of four numbers from 0 to 255. A dot, a third digit and the arrow keys lead from
/// one number to the next, and a whole address can be pasted into any. Each change by the user
/// raises plain_event::Activate.
class IpAddressField : public Cloneable<IpAddressField, Container> {
public:
    static constexpr std::size_t Numbers = 4;

    IpAddressField();

    void drawContent() override;
    void drawChildren(Point position) override;
    bool read(NuiReader& reader) override;
    [[nodiscard]] const char* className() const override { return "IpAddressField"; }

    /// Empty while a number is missing.
    [[nodiscard]] std::string address() const;
    /// Raises nothing. False, and no change, for what is no address; an empty text clears it.
    bool setAddress(const std::string& address);

private:
    using Texts = std::array<std::string, Numbers>;

    static void onKey(WidgetEvent& event);
    static void onTyped(WidgetEvent& event);
    static void onChanged(WidgetEvent& event);
    static void onPasting(WidgetEvent& event);
    static void onFocus(WidgetEvent& event);
    static void onPress(WidgetEvent& event);
    void typeOne(char character) const;
    void focusNearest(float place) const;
    [[nodiscard]] static bool split(const std::string& address, Texts& numbers);
    void ensureNumbers();
    [[nodiscard]] TextField* number(std::size_t index) const;
    [[nodiscard]] std::size_t indexOf(const Widget* field) const;
    void focusNumber(std::size_t index, bool atEnd) const;
    void advanceFrom(std::size_t index) const;
    void raiseChange();

    std::string told_; ///< the address that listeners know
};

} // namespace nui
