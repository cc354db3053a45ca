#include "nui/widgets/breadcrumbs.h"

#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/reader/nui_reader.h"
#include "nui/widgets/control_looks.h"
#include "nui/widgets/link_text_button.h"
#include "nui/widgets/more_button.h"
#include "nui/widgets/popup_list.h"
#include "nui/widgets/screen.h"
#include "nui/widgets/template_items.h"

#include <SDL_keycode.h>

#include <algorithm>
#include <utility>

namespace nui {

namespace {

constexpr const char* PartName = "part";
constexpr const char* SeparatorName = "separator";
constexpr const char* MoreSeparatorName = "more_separator";
constexpr const char* SeparatorText = "\xE2\x80\xBA"; ///< a single angle quotation mark
constexpr float SeparatorRoom = 5; ///< at both sides of a separator; points, as is the next
constexpr float MoreWidth = 24;

Breadcrumbs* ownerOf(const WidgetEvent& event)
{
    return dynamic_cast<Breadcrumbs*>(event.target->parent);
}

std::int32_t indexIn(const std::vector<WidgetPtr>& parts, const Widget* widget)
{
    const auto found = std::find_if(parts.begin(), parts.end(), [widget](const WidgetPtr& part) {
        return part->contains(widget);
    });
    return found == parts.end() ? Breadcrumbs::None
                                : static_cast<std::int32_t>(found - parts.begin());
}

WidgetPtr makeLink()
{
    auto link = std::make_shared<LinkTextButton>();
    link->color = control_color::Accent;
    link->widthMode = Content;
    link->stateTemplates = std::make_unique<StateTemplates>();
    link->stateTemplates->normal = std::make_shared<Widget>();
    link->stateTemplates->normal->color = link->color;
    // Also where the keyboard is.
    link->stateTemplates->over = std::make_shared<Widget>();
    link->stateTemplates->over->color = link->color;
    link->stateTemplates->over->backgroundColor = control_color::Selection;
    link->armClick();
    return link;
}

} // namespace

Breadcrumbs::Breadcrumbs() : separatorText_(SeparatorText)
{
    color = control_color::Ink;
    visibility = visibility::Clipped;
    layoutKind = LayoutKind::Horizontal;
    subscribe(*this, plain_event::Activate, onActivate, static_cast<Widget*>(this));
    subscribe(*this, touch::Press, onPress, static_cast<Widget*>(this));
}

Breadcrumbs::Breadcrumbs(const Breadcrumbs& other) : Cloneable<Breadcrumbs, Container>(other)
{
    adopt(other);
}

Breadcrumbs& Breadcrumbs::operator=(const Breadcrumbs& other)
{
    if (this != &other) {
        Container::operator=(other);
        adopt(other);
    }
    return *this;
}

Breadcrumbs::~Breadcrumbs()
{
    if (list_)
        list_->close();
}

void Breadcrumbs::adopt(const Breadcrumbs& other)
{
    keys_ = other.keys_;
    separatorText_ = other.separatorText_;
    itemTemplate_ = other.itemTemplate_;
    separatorTemplate_ = other.separatorTemplate_;
    picked_ = other.picked_;
    hidden_ = other.hidden_;
    list_.reset();
}

bool Breadcrumbs::read(NuiReader& reader)
{
    Container::read(reader);
    reader.readTemplateRef(itemTemplate_, "itemTemplate");
    reader.readTemplateRef(separatorTemplate_, "separatorTemplate");
    reader.readString(separatorText_, "separator", true);
    reader.readStringList(keys_, "items");
    build();
    return true;
}

void Breadcrumbs::setItems(std::vector<std::string> keys)
{
    if (list_)
        list_->close();
    keys_ = std::move(keys);
    build();
    Form::renewAround(*this);
    if (Screen* const shown = screen())
        shown->markDirty();
}

void Breadcrumbs::build()
{
    for (const char* const kind : {PartName, SeparatorName, MoreSeparatorName}) {
        for (const WidgetPtr& child : childrenNamed(kind))
            remove(child.get());
    }
    picked_ = None;
    buildMore();
    for (std::size_t index = 0; index < keys_.size(); ++index) {
        const bool isLast = index + 1 == keys_.size();
        const WidgetPtr part = makePart(isLast);
        subscribeFirst(*part, keyboard::Down, onKey, nullptr);
        add(part);
        if (!isLast) {
            const WidgetPtr separator = makeSeparator(separatorTemplate_);
            separator->name = SeparatorName;
            add(separator);
        }
    }
    reloadText();
}

/// In front of all parts: the button and what separates it from them.
void Breadcrumbs::buildMore()
{
    MoreButton* more = moreButton();
    if (more == nullptr) {
        auto made = std::make_shared<MoreButton>();
        made->widthValue = MoreWidth;
        made->widthMode = Pt;
        made->color = color;
        more = made.get();
        add(std::move(made));
    }
    insert(0, more->shared_from_this());
    const WidgetPtr separator =
        makeSeparator(more->separatorReplacement ? more->separatorReplacement : separatorTemplate_);
    separator->name = MoreSeparatorName;
    insert(1, separator);
}

WidgetPtr Breadcrumbs::makePart(bool isLast) const
{
    WidgetPtr part;
    if (itemTemplate_) {
        part = itemOf(itemTemplate_);
        part->setEnabled(!isLast);
    } else if (isLast) {
        part = std::make_shared<TextLabel>();
        part->color = color;
        part->widthMode = Content;
    } else {
        part = makeLink();
    }
    part->name = PartName;
    return part;
}

WidgetPtr Breadcrumbs::makeSeparator(const WidgetPtr& look) const
{
    if (look)
        return look->clone();
    auto label = std::make_shared<TextLabel>();
    label->color = color;
    label->alpha = 0.6F;
    label->widthMode = Content;
    label->margin.left = SeparatorRoom;
    label->margin.leftMode = Pt;
    label->margin.right = SeparatorRoom;
    label->margin.rightMode = Pt;
    label->setText(separatorText_);
    return label;
}

void Breadcrumbs::reloadText()
{
    Container::reloadText();
    const std::vector<WidgetPtr> parts = childrenNamed(PartName);
    for (std::size_t index = 0; index < parts.size(); ++index) {
        if (TextLabel* const label = labelIn(*parts[index]))
            label->setText(translated(keys_[index]));
    }
}

MoreButton* Breadcrumbs::moreButton() const
{
    for (const WidgetPtr& child : children()) {
        if (auto* const more = dynamic_cast<MoreButton*>(child.get()))
            return more;
    }
    return nullptr;
}

std::vector<WidgetPtr> Breadcrumbs::childrenNamed(const std::string& wanted) const
{
    std::vector<WidgetPtr> found;
    for (const WidgetPtr& child : children()) {
        if (child->name == wanted)
            found.push_back(child);
    }
    return found;
}

/// Without the first parts; `more` shows what leads to them.
void Breadcrumbs::showFrom(std::size_t first, bool more)
{
    hidden_ = first;
    for (const char* const kind : {PartName, SeparatorName}) {
        const std::vector<WidgetPtr> row = childrenNamed(kind);
        for (std::size_t index = 0; index < row.size(); ++index)
            row[index]->visibility = index < first ? visibility::Collapsed : visibility::Visible;
    }
    const std::uint32_t ofMore = more ? visibility::Visible : visibility::Collapsed;
    if (MoreButton* const button = moreButton())
        button->visibility = ofMore;
    for (const WidgetPtr& separator : childrenNamed(MoreSeparatorName))
        separator->visibility = ofMore;
}

float Breadcrumbs::roomOf(const Widget& child) const
{
    return child.isInFlow() ? child.width + child.margin.both(Axis::X, width) : 0;
}

float Breadcrumbs::wantedWidth() const
{
    float wanted = padding.both(Axis::X, width);
    for (const WidgetPtr& child : children())
        wanted += roomOf(*child);
    return wanted;
}

/// `wanted` is the width of all parts and the more button.
void Breadcrumbs::hideWhatHasNoRoom(float wanted)
{
    const std::vector<WidgetPtr> parts = childrenNamed(PartName);
    const std::vector<WidgetPtr> separators = childrenNamed(SeparatorName);
    std::size_t first = 0;
    for (; first < separators.size() && (first == 0 || wanted > width); ++first)
        wanted -= roomOf(*parts[first]) + roomOf(*separators[first]);
    showFrom(first, first > 0);
}

bool Breadcrumbs::layout(std::uint32_t flags)
{
    if ((flags & layout_flag::Force) == 0 && isLayoutValid())
        return true;
    // All are measured, and then so many hidden as have no room; the last one stays.
    showFrom(0, true);
    // The sizes of the parts are read below, so they must be the ones for this width.
    const bool known = Container::layout(flags & ~layout_flag::SizeOnly);
    const float withMore = wantedWidth();
    showFrom(0, false);
    if (widthMode == Content)
        measure();
    else if (width >= 0 && wantedWidth() > width)
        hideWhatHasNoRoom(withMore);
    return known;
}

void Breadcrumbs::pick(std::int32_t index)
{
    picked_ = index;
    WidgetEvent picked(plain_event::Activate);
    bubble(*this, picked);
}

void Breadcrumbs::openHidden()
{
    MoreButton* const more = moreButton();
    if (more == nullptr || hidden_ == 0)
        return;
    list_ = std::make_shared<PopupList>(more->popup.get());
    list_->setItems({keys_.begin(), keys_.begin() + static_cast<std::ptrdiff_t>(hidden_)});
    list_->setChoice([self = std::weak_ptr(weak_from_this())](std::int32_t index) {
        if (const WidgetPtr owner = self.lock())
            static_cast<Breadcrumbs&>(*owner).pick(index);
    });
    list_->openBelow(more->shared_from_this());
}

void Breadcrumbs::onPress(WidgetEvent& event)
{
    auto& self = static_cast<Breadcrumbs&>(*static_cast<Widget*>(event.user));
    self.pressClosed_ = self.list_ && self.list_->isOpen();
}

void Breadcrumbs::onActivate(WidgetEvent& event)
{
    if (event.phase != Phase::Bubbling)
        return;
    auto& self = static_cast<Breadcrumbs&>(*static_cast<Widget*>(event.user));
    const std::int32_t index = indexIn(self.childrenNamed(PartName), event.source);
    const bool isMore = event.source != nullptr && event.source == self.moreButton();
    if (index == None && !isMore)
        return;
    // In place of the part's, so that nobody hears of one click twice.
    event.stop(stop_level::Swallow);
    if (index != None)
        self.pick(index);
    else if (!std::exchange(self.pressClosed_, false)) {
        self.openHidden();
        // Its keys go through a part.
        const std::vector<WidgetPtr> parts = self.childrenNamed(PartName);
        if (self.hidden_ < parts.size())
            engine().setFocus(parts[self.hidden_]);
    }
}

/// To the part beside one; from the first that is shown back to those that are hidden.
bool Breadcrumbs::goAlong(const Widget& part, bool back)
{
    const std::vector<WidgetPtr> parts = childrenNamed(PartName);
    const std::int32_t index = indexIn(parts, &part);
    if (back && index == static_cast<std::int32_t>(hidden_)) {
        openHidden();
        return hidden_ > 0;
    }
    const std::int32_t next = index + (back ? -1 : 1);
    if (next < 0 || next + 1 >= static_cast<std::int32_t>(parts.size()))
        return false;
    engine().setFocus(parts[static_cast<std::size_t>(next)]);
    return true;
}

void Breadcrumbs::onKey(WidgetEvent& event)
{
    Breadcrumbs* const self = ownerOf(event);
    if (self == nullptr || !event.target->isChainEnabled() ||
        (self->list_ && self->list_->handleKey(event)))
        return;
    const std::int32_t key = static_cast<const KeyboardEvent&>(event).key;
    if ((key == SDLK_LEFT || key == SDLK_RIGHT) && self->goAlong(*event.target, key == SDLK_LEFT))
        event.consume();
}

} // namespace nui
