#include "nui/widgets/ip_address_field.h"

#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/reader/nui_reader.h"
#include "nui/text/clipboard.h"
#include "nui/widgets/control_looks.h"
#include "nui/widgets/number_text_field.h"

#include <SDL_keycode.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

namespace nui {

namespace {

constexpr std::size_t MostDigits = 3;
constexpr int MostNumber = 255;
constexpr const char* NumberName = "number";
constexpr float DotWidth = 6; ///< points

IpAddressField* ownerOf(const WidgetEvent& event)
{
    return dynamic_cast<IpAddressField*>(event.target->parent);
}

/// -1 for what is no number of an address.
int numberOf(const std::string& digits)
{
    int number = -1;
    const char* const last = digits.data() + digits.size();
    const auto [end, error] = std::from_chars(digits.data(), last, number);
    return error == std::errc() && end == last && number >= 0 ? number : -1;
}

bool isSeparator(char typed)
{
    return typed == '.' || typed == ',' || typed == ' ';
}

std::shared_ptr<TextLabel> dot(Color color)
{
    auto label = std::make_shared<TextLabel>();
    label->setText(".");
    label->color = color;
    label->textAlignment = TextAlignment::Center;
    label->widthValue = DotWidth;
    label->widthMode = Pt;
    return label;
}

} // namespace

IpAddressField::IpAddressField()
{
    setControlColors(*this);
    layoutKind = LayoutKind::Horizontal;
    subscribe(*this, text::Changed, onChanged, static_cast<Widget*>(this));
    subscribe(*this, text::Pasting, onPasting, static_cast<Widget*>(this));
    subscribe(*this, keyboard::FocusGained, onFocus, static_cast<Widget*>(this));
    subscribe(*this, touch::Press, onPress, static_cast<Widget*>(this));
}

bool IpAddressField::read(NuiReader& reader)
{
    Container::read(reader);
    ensureNumbers();
    std::string text;
    if (reader.readString(text, "address", true) && !setAddress(text))
        reader.reportFault(LayoutFault::Kind::UnknownValue, text, "address");
    return true;
}

void IpAddressField::ensureNumbers()
{
    if (number(0) != nullptr)
        return;
    for (std::size_t index = 0; index < Numbers; ++index) {
        if (index > 0)
            add(dot(color));
        auto field = std::make_shared<NumberTextField>();
        field->name = NumberName + std::to_string(index);
        field->color = color;
        field->textAlignment = TextAlignment::Center;
        field->setInputType(InputType::Number);
        field->setMaxLength(MostDigits);
        subscribeFirst(*field, keyboard::Down, onKey, nullptr);
        subscribeFirst(*field, text::Committed, onTyped, nullptr);
        add(std::move(field));
    }
}

TextField* IpAddressField::number(std::size_t index) const
{
    return dynamic_cast<TextField*>(findChild(NumberName + std::to_string(index)).get());
}

std::size_t IpAddressField::indexOf(const Widget* field) const
{
    std::size_t index = 0;
    while (index < Numbers && number(index) != field)
        ++index;
    return index;
}

bool IpAddressField::split(const std::string& address, Texts& numbers)
{
    std::size_t start = 0;
    for (std::size_t index = 0; index < Numbers; ++index) {
        const bool isLast = index + 1 == Numbers;
        const std::size_t end = address.find('.', start);
        if ((end == std::string::npos) != isLast)
            return false;
        const int value = numberOf(address.substr(start, end - start));
        if (value < 0 || value > MostNumber)
            return false;
        numbers[index] = std::to_string(value);
        start = end + 1;
    }
    return true;
}

std::string IpAddressField::address() const
{
    std::string joined;
    for (std::size_t index = 0; index < Numbers; ++index) {
        const TextField* const field = number(index);
        const int value = field == nullptr ? -1 : numberOf(field->getText());
        if (value < 0)
            return {};
        joined += (index == 0 ? "" : ".") + std::to_string(std::min(value, MostNumber));
    }
    return joined;
}

bool IpAddressField::setAddress(const std::string& address)
{
    Texts numbers;
    if (!address.empty() && !split(address, numbers))
        return false;
    for (std::size_t index = 0; index < Numbers; ++index) {
        if (TextField* const field = number(index))
            field->setText(numbers[index]);
    }
    told_ = this->address();
    return true;
}

void IpAddressField::focusNumber(std::size_t index, bool atEnd) const
{
    TextField* const field = index < Numbers ? number(index) : nullptr;
    if (field == nullptr)
        return;
    engine().setFocus(field->shared_from_this());
    field->setCaret(atEnd ? static_cast<std::int32_t>(MostDigits) : 0);
}

/// To the next number, which is written over.
void IpAddressField::advanceFrom(std::size_t index) const
{
    TextField* const next = index + 1 < Numbers ? number(index + 1) : nullptr;
    if (next == nullptr)
        return;
    engine().setFocus(next->shared_from_this());
    next->selectAll();
}

void IpAddressField::onKey(WidgetEvent& event)
{
    const auto& pressed = static_cast<const KeyboardEvent&>(event);
    const IpAddressField* const self = ownerOf(event);
    if (self == nullptr || (pressed.modifiers & (KMOD_SHIFT | KMOD_CTRL | KMOD_ALT)) != 0)
        return;
    const auto& field = static_cast<const TextField&>(*event.target);
    const std::size_t index = self->indexOf(&field);
    if (field.caret() != field.anchor())
        return;
    const bool isAtEnd = field.caret() == static_cast<std::int32_t>(field.getText().size());
    const bool leadsBack = pressed.key == SDLK_LEFT || pressed.key == SDLK_BACKSPACE;
    if (pressed.key == SDLK_RIGHT && isAtEnd && index + 1 < Numbers) {
        self->focusNumber(index + 1, false);
        event.consume();
    } else if (leadsBack && field.caret() == 0 && index > 0) {
        self->focusNumber(index - 1, true);
        event.consume();
    }
}

void IpAddressField::onTyped(WidgetEvent& event)
{
    const IpAddressField* const self = ownerOf(event);
    const std::string& typed = static_cast<const TextEvent&>(event).text;
    if (self == nullptr || std::none_of(typed.begin(), typed.end(), isSeparator))
        return;
    event.consume();
    // Input methods give a whole address at once.
    for (const char character : typed)
        self->typeOne(character);
}

void IpAddressField::typeOne(char character) const
{
    std::size_t index = 0;
    while (index < Numbers && !hasFocus(*number(index)))
        ++index;
    if (index == Numbers)
        return;
    TextField& field = *number(index);
    if (!isSeparator(character))
        field.insertText(std::string(1, character));
    // Right behind a number that was full, the dot only says what has happened already.
    else if (!field.getText().empty() && field.caret() == field.anchor())
        advanceFrom(index);
}

/// The keyboard belongs to a number, never to the field around it.
void IpAddressField::onFocus(WidgetEvent& event)
{
    static_cast<IpAddressField*>(static_cast<Widget*>(event.user))->focusNearest(0);
}

/// A dot gives the keyboard to the number beside it.
void IpAddressField::onPress(WidgetEvent& event)
{
    const auto& self = *static_cast<IpAddressField*>(static_cast<Widget*>(event.user));
    if (self.isChainEnabled() && self.indexOf(event.source) == Numbers)
        self.focusNearest(static_cast<float>(static_cast<const TouchEvent&>(event).x));
}

/// `place` is on the window.
void IpAddressField::focusNearest(float place) const
{
    const TextField* nearest = nullptr;
    float best = 0;
    for (std::size_t index = 0; index < Numbers; ++index) {
        const TextField* const field = number(index);
        if (field == nullptr)
            continue;
        const float distance = std::abs(field->x + field->width / 2 - place);
        if (nearest == nullptr || distance < best) {
            nearest = field;
            best = distance;
        }
    }
    if (nearest != nullptr)
        focusNumber(indexOf(nearest), true);
}

void IpAddressField::onChanged(WidgetEvent& event)
{
    auto& self = static_cast<IpAddressField&>(*static_cast<Widget*>(event.user));
    const std::size_t index = self.indexOf(event.source);
    if (index == Numbers)
        return;
    TextField& field = *self.number(index);
    const std::string digits = field.getText();
    if (numberOf(digits) > MostNumber)
        field.setText(std::to_string(MostNumber));
    const bool isFull = digits.size() == MostDigits;
    if (isFull && field.caret() == static_cast<std::int32_t>(MostDigits) && hasFocus(field))
        self.advanceFrom(index);
    self.raiseChange();
}

void IpAddressField::raiseChange()
{
    std::string now = address();
    if (now == told_)
        return;
    told_ = std::move(now);
    WidgetEvent changed(plain_event::Activate);
    bubble(*this, changed);
}

/// A number would refuse the dots.
void IpAddressField::onPasting(WidgetEvent& event)
{
    auto& self = static_cast<IpAddressField&>(*static_cast<Widget*>(event.user));
    Texts numbers;
    if (self.indexOf(event.source) == Numbers || !split(clipboardText(), numbers))
        return;
    for (std::size_t index = 0; index < Numbers; ++index)
        self.number(index)->setText(numbers[index]);
    self.focusNumber(Numbers - 1, true);
    self.raiseChange();
}

void IpAddressField::drawContent()
{
    fadeIfDisabled(*this);
}

void IpAddressField::drawChildren(Point position)
{
    Container::drawChildren(position);
    for (std::size_t index = 0; index < Numbers; ++index) {
        TextField* const field = number(index);
        if (field != nullptr && hasFocus(*field))
            drawFrame(*this);
    }
}

} // namespace nui
