#include "nui/widgets/number_field.h"

#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/reader/nui_reader.h"
#include "nui/text/number_text.h"
#include "nui/widgets/control_looks.h"
#include "nui/widgets/number_stepper.h"
#include "nui/widgets/number_text_field.h"
#include "nui/widgets/template_items.h"
#include "nui/widgets/value_range.h"

#include <SDL_keycode.h>

#include <algorithm>
#include <cmath>

namespace nui {

namespace {

constexpr const char* FieldName = "field";
constexpr const char* UnitName = "unit";
constexpr float PageSteps = 10;
constexpr std::uint32_t MostDecimals = 9;
constexpr float Indent = 6; ///< of the text; this and the next in points
constexpr float StepperWidth = 18;

/// The field that a part belongs to. The parts' listeners find it so, as a clone's parts have
/// those of their source.
NumberField* ownerOf(const WidgetEvent& event)
{
    for (Widget* widget = event.target; widget != nullptr; widget = widget->parent) {
        if (auto* const owner = dynamic_cast<NumberField*>(widget))
            return owner;
    }
    return nullptr;
}

bool usesDecimalComma()
{
    const Lang* const lang = engine().lang.get();
    return lang != nullptr && lang->usesDecimalComma();
}

double rounded(double value, std::uint32_t decimals)
{
    const double unit = std::pow(10.0, decimals);
    const double digits = std::round(value * unit) / unit;
    return std::isfinite(digits) ? digits : value;
}

} // namespace

NumberField::NumberField()
{
    setControlColors(*this);
    layoutKind = LayoutKind::Horizontal;
    subscribe(*this, touch::Wheel, onWheel, static_cast<Widget*>(this));
    subscribe(*this, keyboard::FocusGained, onFocus, static_cast<Widget*>(this));
}

/// The keyboard belongs to the text, never to the field around it.
void NumberField::onFocus(WidgetEvent& event)
{
    static_cast<const NumberField*>(static_cast<Widget*>(event.user))->focusText();
}

bool NumberField::read(NuiReader& reader)
{
    Container::read(reader);
    ensureParts();
    float minimum = minimum_;
    float maximum = maximum_;
    readRange(reader, minimum, maximum);
    setRange(minimum, maximum);
    reader.readFloat(step_, "step");
    std::uint32_t decimals = decimals_;
    if (reader.readUnsigned(decimals, "decimals"))
        setDecimals(decimals);
    if (reader.readString(unitKey_, "unit", true))
        showUnit();
    float value = value_;
    if (reader.readFloat(value, "value"))
        setValue(value);
    showValue();
    return true;
}

void NumberField::ensureParts()
{
    TextField* text = field();
    if (text == nullptr) {
        auto made = std::make_shared<NumberTextField>();
        made->name = FieldName;
        made->color = color;
        made->margin.left = Indent;
        made->margin.leftMode = Pt;
        made->setVersion(2);
        insert(0, made);
        text = made.get();
        auto unit = std::make_shared<TextLabel>();
        unit->name = UnitName;
        unit->color = color;
        unit->widthMode = Content;
        unit->visibility = visibility::Collapsed;
        if (!findChild(UnitName))
            insert(1, std::move(unit));
        auto stepper = std::make_shared<NumberStepper>();
        stepper->color = color;
        stepper->widthValue = StepperWidth;
        stepper->widthMode = Pt;
        add(std::move(stepper));
    }
    subscribeFirst(*text, keyboard::Down, onKey, nullptr);
    subscribe(*text, keyboard::FocusLost, onFocusLost, nullptr);
}

TextField* NumberField::field() const
{
    return dynamic_cast<TextField*>(findChild(FieldName).get());
}

void NumberField::setRange(float minimum, float maximum)
{
    minimum_ = minimum;
    maximum_ = std::max(minimum, maximum);
    setValue(value_);
}

void NumberField::setDecimals(std::uint32_t decimals)
{
    decimals_ = std::min(decimals, MostDecimals);
    showValue();
}

void NumberField::setUnit(const std::string& key)
{
    unitKey_ = key;
    showUnit();
}

void NumberField::setValue(float value)
{
    if (storeValue(static_cast<double>(value)))
        showValue();
}

bool NumberField::storeValue(double value)
{
    if (std::isnan(value))
        return false;
    const auto limited = static_cast<float>(
        std::clamp(value, static_cast<double>(minimum_), static_cast<double>(maximum_)));
    if (limited == value_)
        return false;
    value_ = limited;
    return true;
}

void NumberField::setByUser(double value)
{
    const bool changed = storeValue(rounded(value, decimals_));
    showValue();
    if (!changed)
        return;
    WidgetEvent committed(plain_event::Activate);
    bubble(*this, committed);
}

void NumberField::commit()
{
    const TextField* const text = field();
    const std::string shown =
        numberText(static_cast<double>(value_), static_cast<int>(decimals_), usesDecimalComma());
    // A value with more decimals than are shown stays whole if nobody has edited it.
    if (text == nullptr || text->getText() == shown)
        return;
    std::string typed = text->getText();
    const std::string unit = shownUnit();
    if (!unit.empty() && typed.ends_with(unit))
        typed.erase(typed.size() - unit.size());
    if (const std::optional<double> number = numberFrom(typed))
        setByUser(*number);
    else
        showValue();
}

void NumberField::stepBy(float steps)
{
    commit();
    setByUser(static_cast<double>(value_) +
              static_cast<double>(steps) * static_cast<double>(step_));
}

void NumberField::focusText() const
{
    if (TextField* const text = field())
        engine().setFocus(text->shared_from_this());
}

void NumberField::showValue()
{
    TextField* const text = field();
    if (text == nullptr)
        return;
    const std::string shown =
        numberText(static_cast<double>(value_), static_cast<int>(decimals_), usesDecimalComma());
    if (text->getText() != shown)
        text->setText(shown);
}

std::string NumberField::shownUnit() const
{
    return translated(unitKey_);
}

void NumberField::showUnit()
{
    auto* const label = dynamic_cast<TextLabel*>(findChild(UnitName).get());
    if (label == nullptr)
        return;
    label->setText(shownUnit());
    label->visibility = unitKey_.empty() ? visibility::Collapsed : visibility::Visible;
}

void NumberField::reloadText()
{
    Container::reloadText();
    showUnit();
    showValue();
}

bool NumberField::handleKey(std::int32_t key)
{
    switch (key) {
    case SDLK_UP:
        stepBy(1);
        return true;
    case SDLK_DOWN:
        stepBy(-1);
        return true;
    case SDLK_PAGEUP:
        stepBy(PageSteps);
        return true;
    case SDLK_PAGEDOWN:
        stepBy(-PageSteps);
        return true;
    case SDLK_ESCAPE:
        showValue();
        return false;
    case SDLK_RETURN:
    case SDLK_KP_ENTER:
        // Goes on to the form, whose default item finds the value committed.
        commit();
        return false;
    default:
        return false;
    }
}

void NumberField::onKey(WidgetEvent& event)
{
    NumberField* const self = ownerOf(event);
    if (self != nullptr && self->isChainEnabled() &&
        self->handleKey(static_cast<const KeyboardEvent&>(event).key))
        event.consume();
}

void NumberField::onFocusLost(WidgetEvent& event)
{
    if (NumberField* const self = ownerOf(event))
        self->commit();
}

void NumberField::onWheel(WidgetEvent& event)
{
    auto& self = static_cast<NumberField&>(*static_cast<Widget*>(event.user));
    TextField* const text = self.field();
    // Without the keyboard the wheel scrolls what the field stands in.
    if (text == nullptr || !hasFocus(*text))
        return;
    self.stepBy(static_cast<const TouchEvent&>(event).wheel);
    event.stop(stop_level::EndsBubble);
}

void NumberField::drawContent()
{
    fadeIfDisabled(*this);
}

void NumberField::drawChildren(Point position)
{
    Container::drawChildren(position);
    TextField* const text = field();
    if (text != nullptr && hasFocus(*text))
        drawFrame(*this);
}

} // namespace nui
