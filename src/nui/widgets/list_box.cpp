#include "nui/widgets/list_box.h"

#include "misc/text.h"
#include "nui/draw/drawing.h"
#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/reader/nui_reader.h"
#include "nui/widgets/screen.h"
#include "nui/widgets/template_items.h"
#include "nui/widgets/text_label.h"

#include <SDL_keyboard.h>

#include <algorithm>
#include <utility>

namespace nui {

namespace {

constexpr float ItemHeight = 22; ///< of items that are only texts; in points, as is the next
constexpr float ItemIndent = 6;

WidgetPtr lookOf(Color color)
{
    auto look = std::make_shared<Widget>();
    look->color = color;
    return look;
}

std::string lowered(std::string text)
{
    nrd::misc::to_lower(text);
    return text;
}

} // namespace

ListBox::ListBox()
{
    setControlColors(*this);
    visibility = visibility::Clipped;
    setScrollable(false, true);
    for (const EventType type : {touch::Press, touch::Move, touch::Leave})
        subscribe(*this, type, onPointer, static_cast<Widget*>(this));
    subscribe(*this, keyboard::Down, onKey, static_cast<Widget*>(this));
    subscribe(*this, text::Committed, onText, static_cast<Widget*>(this));
}

bool ListBox::read(NuiReader& reader)
{
    Container::read(reader);
    reader.readColor(selectionColor, "selectionColor", "selectionAlpha");
    reader.readColor(hoverColor, "hoverColor", "hoverAlpha");
    const bool hasTemplate = reader.readTemplateRef(itemTemplate_, "itemTemplate");
    std::vector<std::string> keys;
    if (reader.readStringList(keys, "items"))
        setItems(std::move(keys));
    else if (hasTemplate)
        setItems(keys_);
    std::int32_t selected = None;
    if (reader.readInt(selected, "selected")) {
        if (selected >= static_cast<std::int32_t>(count()))
            reader.reportFault(LayoutFault::Kind::UnknownValue, std::to_string(selected),
                               "selected");
        select(selected);
    }
    return true;
}

WidgetPtr ListBox::makeItem() const
{
    if (itemTemplate_)
        return itemOf(itemTemplate_);
    auto label = std::make_shared<TextLabel>();
    label->color = color;
    label->stateTemplates = std::make_unique<StateTemplates>(labelLooks_);
    label->heightValue = ItemHeight;
    label->heightMode = Pt;
    label->margin.left = ItemIndent;
    label->margin.leftMode = Pt;
    return label;
}

void ListBox::setItems(std::vector<std::string> keys)
{
    for (std::size_t made = keys_.size(); made > 0; --made)
        remove(children().back().get());
    keys_ = std::move(keys);
    labelLooks_.normal = lookOf(color);
    labelLooks_.disabled = lookOf(fadedBy(color, DisabledAlpha));
    for (std::size_t made = 0; made < keys_.size(); ++made)
        add(makeItem());
    reloadText();
    hover_ = None;
    select(None);
    if (Screen* const shown = screen())
        shown->markDirty();
}

void ListBox::reloadText()
{
    Container::reloadText();
    const std::size_t first = count() - keys_.size();
    for (std::size_t index = 0; index < keys_.size(); ++index) {
        if (TextLabel* const label = labelIn(*children()[first + index]))
            label->setText(translated(keys_[index]));
    }
}

std::string ListBox::itemText(std::int32_t index) const
{
    if (index < 0 || static_cast<std::size_t>(index) >= count())
        return {};
    const TextLabel* const label = labelIn(*children()[static_cast<std::size_t>(index)]);
    return label == nullptr ? std::string() : label->getText();
}

std::int32_t ListBox::indexOf(const std::string& text) const
{
    for (std::int32_t index = 0; static_cast<std::size_t>(index) < count(); ++index) {
        if (itemText(index) == text)
            return index;
    }
    return None;
}

std::int32_t ListBox::indexStartingWith(const std::string& text, std::int32_t after) const
{
    const auto items = static_cast<std::int32_t>(count());
    for (std::int32_t step = 1; step <= items; ++step) {
        const std::int32_t index = (after + step) % items;
        if (isUsable(index) && lowered(itemText(index)).starts_with(text))
            return index;
    }
    return None;
}

std::int32_t ListBox::indexAfterTyping(const std::string& typed)
{
    const bool goesOn = typeAhead_.isRunning();
    if (!typeAhead_.add(typed))
        return None;
    // The first letter leads away from the current item, those behind it say more about the one
    // that it has led to.
    const std::int32_t after = goesOn ? std::max(current_, 0) - 1 : current_;
    const std::int32_t index = indexStartingWith(typeAhead_.text(), after);
    const std::string letter = typeAhead_.repeatedLetter();
    return index == None && !letter.empty() ? indexStartingWith(letter, current_) : index;
}

std::int32_t ListBox::itemAt(Point position) const
{
    if (position.x < x || position.x >= x + width || position.y < y || position.y >= y + height)
        return None;
    const auto& items = children();
    const auto found = std::find_if(items.begin(), items.end(), [&position](const WidgetPtr& item) {
        return item->isDrawn() && position.y >= item->y && position.y < item->y + item->height;
    });
    return found == items.end() ? None : static_cast<std::int32_t>(found - items.begin());
}

bool ListBox::isUsable(std::int32_t index) const
{
    if (index < 0 || static_cast<std::size_t>(index) >= count())
        return false;
    const Widget& item = *children()[static_cast<std::size_t>(index)];
    return item.touchEnabled && item.isDrawn();
}

/// The index, or the next in the direction that can be selected.
std::int32_t ListBox::usableFrom(std::int32_t index, std::int32_t step) const
{
    const auto items = static_cast<std::int32_t>(count());
    while (index >= 0 && index < items && !isUsable(index))
        index += step;
    return index >= 0 && index < items ? index : None;
}

/// The last one that lies no further than the list is high.
std::int32_t ListBox::pageFrom(std::int32_t from, float direction) const
{
    const auto step = static_cast<std::int32_t>(direction);
    const float start = children()[static_cast<std::size_t>(from)]->localY;
    std::int32_t reached = usableFrom(from + step, step);
    for (std::int32_t next = reached; next != None; next = usableFrom(next + step, step)) {
        const Widget& item = *children()[static_cast<std::size_t>(next)];
        if ((item.localY - start) * direction + item.height > height)
            break;
        reached = next;
    }
    return reached;
}

std::int32_t ListBox::indexAfterKey(std::int32_t key, std::int32_t from) const
{
    const auto last = static_cast<std::int32_t>(count()) - 1;
    const bool isForward = key == SDLK_DOWN || key == SDLK_PAGEDOWN;
    const bool isBackward = key == SDLK_UP || key == SDLK_PAGEUP;
    if (key == SDLK_END)
        return usableFrom(last, -1);
    if (key == SDLK_HOME || ((isForward || isBackward) && from == None))
        return usableFrom(0, 1);
    std::int32_t next = None;
    if (key == SDLK_PAGEDOWN || key == SDLK_PAGEUP)
        next = pageFrom(from, isForward ? 1.0F : -1.0F);
    else if (isForward || isBackward)
        next = isForward ? usableFrom(from + 1, 1) : usableFrom(from - 1, -1);
    else
        return None;
    return next == None ? from : next;
}

void ListBox::setCurrent(std::int32_t index)
{
    current_ = index;
    revealPending_ = true;
    reveal();
}

void ListBox::select(std::int32_t index)
{
    if (index != current_ && index < static_cast<std::int32_t>(count()))
        setCurrent(std::max(index, None));
}

/// Scrolls to the current item as soon as it has its place.
void ListBox::reveal()
{
    if (current_ == None)
        return;
    const Widget& item = *children()[static_cast<std::size_t>(current_)];
    if (!(height > 0) || !(item.height > 0))
        return;
    revealPending_ = false;
    makeVisible(Axis::Y, item.localY, item.height);
}

void ListBox::place()
{
    Container::place();
    if (revealPending_)
        reveal();
}

void ListBox::raiseSelection()
{
    WidgetEvent selected(plain_event::Activate);
    bubble(*this, selected);
}

void ListBox::choose(std::int32_t index, By /*by*/, std::uint16_t /*modifiers*/)
{
    if (index == current_)
        return;
    setCurrent(index);
    raiseSelection();
}

void ListBox::onPointer(WidgetEvent& event)
{
    auto& self = static_cast<ListBox&>(*static_cast<Widget*>(event.user));
    const auto& touched = static_cast<const TouchEvent&>(event);
    const Point position{static_cast<float>(touched.x), static_cast<float>(touched.y)};
    const std::int32_t index = self.itemAt(position);
    self.hover_ = event.type == touch::Leave ? None : index;
    if (event.type != touch::Press || !self.interactive_ ||
        (touched.buttons & pointer_button::Left) == 0)
        return;
    engine().setFocus(self.shared_from_this());
    if (self.isUsable(index))
        self.choose(index, By::Pointer, static_cast<std::uint16_t>(SDL_GetModState()));
}

void ListBox::onKey(WidgetEvent& event)
{
    auto& self = static_cast<ListBox&>(*static_cast<Widget*>(event.user));
    if (!self.interactive_ || !self.isChainEnabled())
        return;
    const auto& pressed = static_cast<const KeyboardEvent&>(event);
    const std::int32_t index = self.indexAfterKey(pressed.key, self.current_);
    if (index != None)
        self.choose(index, By::Key, pressed.modifiers);
    if (index != None || self.handleOtherKey(pressed.key, pressed.modifiers))
        event.prevented = true;
}

void ListBox::onText(WidgetEvent& event)
{
    auto& self = static_cast<ListBox&>(*static_cast<Widget*>(event.user));
    const std::string& typed = static_cast<const TextEvent&>(event).text;
    if (!self.interactive_ || !self.isChainEnabled())
        return;
    const std::int32_t index = self.indexAfterTyping(typed);
    if (index != None)
        self.choose(index, By::Key, 0);
}

void ListBox::fillRow(std::int32_t index, Color rowColor) const
{
    const Widget& item = *children()[static_cast<std::size_t>(index)];
    setColor(rowColor, drawAlpha);
    fillRect(x, item.localY + (y - localY) + scrollY, width, item.height);
}

void ListBox::drawContent()
{
    fadeIfDisabled(*this);
    for (std::int32_t index = 0; static_cast<std::size_t>(index) < count(); ++index) {
        if (isSelected(index))
            fillRow(index, selectionColor);
        else if (index == hover_ && isUsable(index) && isChainEnabled())
            fillRow(index, hoverColor);
    }
}

void ListBox::drawChildren(Point position)
{
    Container::drawChildren(position);
    drawFocusFrame(*this);
}

} // namespace nui
