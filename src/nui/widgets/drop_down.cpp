#include "nui/widgets/drop_down.h"

#include "nui/draw/drawing.h"
#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/reader/nui_reader.h"
#include "nui/widgets/control_looks.h"
#include "nui/widgets/list_box.h"
#include "nui/widgets/popup_list.h"
#include "nui/widgets/screen.h"
#include "nui/widgets/template_items.h"
#include "nui/widgets/text_label.h"

#include <SDL_keycode.h>

#include <utility>

namespace nui {

namespace {

constexpr const char* LabelName = "text";
constexpr float ArrowRoom = 20; ///< points at the right of the text, as is the next
constexpr float TextIndent = 6;
constexpr float ArrowSize = 4;
constexpr std::uint32_t HintAlpha = 128;

DropDown& selfOf(const WidgetEvent& event)
{
    return static_cast<DropDown&>(*static_cast<Widget*>(event.user));
}

} // namespace

DropDown::DropDown()
{
    setControlColors(*this);
    childrenTouch = false;
    layoutKind = LayoutKind::Horizontal;
    subscribe(*this, touch::Press, onPress, static_cast<Widget*>(this));
    subscribe(*this, keyboard::Down, onKey, static_cast<Widget*>(this));
    subscribe(*this, keyboard::FocusLost, onFocusLost, static_cast<Widget*>(this));
    subscribe(*this, text::Committed, onText, static_cast<Widget*>(this));
}

DropDown::DropDown(const DropDown& other) : Cloneable<DropDown, Container>(other), FormItem(other)
{
    adopt(other);
}

DropDown& DropDown::operator=(const DropDown& other)
{
    if (this != &other) {
        Container::operator=(other);
        FormItem::operator=(other);
        adopt(other);
    }
    return *this;
}

DropDown::~DropDown()
{
    closeList();
}

void DropDown::adopt(const DropDown& other)
{
    closeList();
    list_.reset();
    keys_ = other.keys_;
    hintKey_ = other.hintKey_;
    popupTemplate_ = other.popupTemplate_;
    maxRows_ = other.maxRows_;
    selected_ = other.selected_;
}

bool DropDown::read(NuiReader& reader)
{
    Container::read(reader);
    reader.readString(hintKey_, "hint", true);
    if (reader.readTemplateRef(popupTemplate_, "popup"))
        list_.reset();
    reader.readUnsigned(maxRows_, "maxRows");
    std::vector<std::string> keys;
    if (reader.readStringList(keys, "items"))
        setItems(std::move(keys));
    std::int32_t selected = None;
    if (reader.readInt(selected, "selected")) {
        if (selected >= static_cast<std::int32_t>(count()))
            reader.reportFault(LayoutFault::Kind::UnknownValue, std::to_string(selected),
                               "selected");
        select(selected);
    }
    showSelection();
    return true;
}

TextLabel& DropDown::requireLabel()
{
    if (auto* const label = dynamic_cast<TextLabel*>(findChild(LabelName).get()))
        return *label;
    auto label = std::make_shared<TextLabel>();
    label->name = LabelName;
    label->color = color;
    label->margin.left = TextIndent;
    label->margin.leftMode = Pt;
    label->margin.right = ArrowRoom;
    label->margin.rightMode = Pt;
    label->visibility = visibility::Clipped;
    add(label);
    return *label;
}

PopupList& DropDown::requireList()
{
    if (!list_) {
        list_ = std::make_shared<PopupList>(popupTemplate_.get());
        list_->setItems(keys_);
        list_->setMaxRows(maxRows_);
        list_->list().select(selected_);
        list_->setChoice([self = std::weak_ptr(weak_from_this())](std::int32_t index) {
            if (const WidgetPtr owner = self.lock())
                static_cast<DropDown&>(*owner).chooseAndRelease(index);
        });
    }
    return *list_;
}

void DropDown::setItems(std::vector<std::string> keys)
{
    closeList();
    keys_ = std::move(keys);
    list_.reset();
    selected_ = None;
    showSelection();
}

std::string DropDown::selectedText()
{
    return selected_ == None ? std::string() : requireList().list().itemText(selected_);
}

void DropDown::select(std::int32_t index)
{
    if (index < None || index >= static_cast<std::int32_t>(count()))
        return;
    selected_ = index;
    if (list_)
        list_->list().select(index);
    showSelection();
}

bool DropDown::selectText(const std::string& text)
{
    const std::int32_t index = requireList().list().indexOf(text);
    if (index == None)
        return false;
    select(index);
    return true;
}

void DropDown::showSelection()
{
    TextLabel& label = requireLabel();
    const bool showsHint = selected_ == None;
    label.color = withAlpha(label.color, showsHint ? HintAlpha : alphaOf(OpaqueWhite));
    label.setText(translated(showsHint ? hintKey_ : keys_[static_cast<std::size_t>(selected_)]));
}

void DropDown::reloadText()
{
    Container::reloadText();
    if (list_)
        list_->reloadText();
    showSelection();
}

void DropDown::setEnabled(bool enabled)
{
    if (!enabled)
        closeList();
    Container::setEnabled(enabled);
}

void DropDown::openList()
{
    if (keys_.empty() || !isChainEnabled())
        return;
    PopupList& popup = requireList();
    popup.list().select(selected_);
    popup.openBelow(shared_from_this());
}

void DropDown::closeList()
{
    if (list_)
        list_->close();
}

bool DropDown::isListOpen() const
{
    return list_ && list_->isOpen();
}

void DropDown::choose(std::int32_t index)
{
    if (index == selected_)
        return;
    select(index);
    WidgetEvent chosen(plain_event::Activate);
    bubble(*this, chosen);
}

/// Where the list has had the release, or a key is none that is listened for: whoever follows the
/// selection hears of it here.
void DropDown::chooseAndRelease(std::int32_t index)
{
    choose(index);
    TouchEvent released(touch::Release);
    released.buttons = pointer_button::Left;
    dispatch(*this, released, Phase::AtTarget);
}

void DropDown::onPress(WidgetEvent& event)
{
    if ((static_cast<const TouchEvent&>(event).buttons & pointer_button::Left) == 0)
        return;
    DropDown& self = selfOf(event);
    engine().setFocus(self.shared_from_this());
    if (self.isListOpen())
        self.closeList();
    else
        self.openList();
    // The screen would close the list at once, as for any press beside it.
    event.stop(stop_level::EndsBubble);
}

void DropDown::onKey(WidgetEvent& event)
{
    DropDown& self = selfOf(event);
    if (!self.isChainEnabled() || (self.list_ && self.list_->handleKey(event)))
        return;
    self.handleClosedKey(static_cast<KeyboardEvent&>(event));
}

void DropDown::handleClosedKey(KeyboardEvent& event)
{
    const bool isUpOrDown = event.key == SDLK_UP || event.key == SDLK_DOWN;
    const bool isCommandSpace = event.key == SDLK_SPACE && !requireList().list().isBeingTypedTo();
    const bool opens =
        event.key == SDLK_F4 || isCommandSpace || (isUpOrDown && (event.modifiers & KMOD_ALT) != 0);
    if (opens) {
        openList();
        event.consume();
        return;
    }
    const std::int32_t next = requireList().list().indexAfterKey(event.key, selected_);
    if (next == None)
        return;
    event.prevented = true;
    // Not swallowed: with up and down, listeners take the new selection over from the key.
    if (isUpOrDown)
        choose(next);
    else if (next != selected_)
        chooseAndRelease(next);
}

void DropDown::onText(WidgetEvent& event)
{
    DropDown& self = selfOf(event);
    const std::string& typed = static_cast<const TextEvent&>(event).text;
    if (!self.isChainEnabled())
        return;
    ListBox& list = self.requireList().list();
    const std::int32_t index = list.indexAfterTyping(typed);
    if (index == None)
        return;
    if (self.isListOpen())
        list.select(index);
    else if (index != self.selected_)
        self.chooseAndRelease(index);
}

void DropDown::onFocusLost(WidgetEvent& event)
{
    DropDown& self = selfOf(event);
    // A press on a field among the items takes the keyboard to it.
    const PointerPath& pointer = engine().pointer;
    if (!self.list_ || !pointer.isDown() || !self.list_->isHitAt(pointer.x(), pointer.y()))
        self.closeList();
}

void DropDown::drawContent()
{
    fadeIfDisabled(*this);
    const float scale = engine().metrics.displayScale;
    setColor(color, drawAlpha);
    drawArrow({x + width - ArrowRoom * scale / 2, y + height / 2}, ArrowSize * scale, Axis::Y,
              false);
}

void DropDown::drawChildren(Point position)
{
    Container::drawChildren(position);
    drawFocusFrame(*this);
}

} // namespace nui
