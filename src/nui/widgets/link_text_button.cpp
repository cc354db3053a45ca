#include "nui/widgets/link_text_button.h"

#include "nui/draw/drawing.h"
#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"

#include <SDL_mouse.h>

namespace nui {

namespace {

constexpr float LineThickness = 1;

/// The system's hand; made once.
SDL_Cursor* handCursor()
{
    CursorPtr& cursor = engine().linkCursor;
    if (!cursor)
        cursor.reset(SDL_CreateSystemCursor(SDL_SYSTEM_CURSOR_HAND));
    return cursor.get();
}

LinkTextButton& linkOf(WidgetEvent& event)
{
    return static_cast<LinkTextButton&>(*event.target);
}

/// Where a part of something stands that leaves that much room free.
float startOf(std::uint32_t alignment, float room)
{
    return room * static_cast<float>(alignment) / 2;
}

} // namespace

LinkTextButton::LinkTextButton()
{
    subscribe(*this, touch::EnterSelf, onEnter, nullptr);
    subscribe(*this, touch::LeaveSelf, onLeave, nullptr);
}

LinkTextButton::LinkTextButton(const LinkTextButton& other)
    : Cloneable<LinkTextButton, TextButton>(other)
{
}

LinkTextButton& LinkTextButton::operator=(const LinkTextButton& other)
{
    if (this != &other)
        TextButton::operator=(other);
    return *this;
}

LinkTextButton::~LinkTextButton()
{
    if (hovered_ && Engine::exists())
        endHover();
}

void LinkTextButton::onEnter(WidgetEvent& event)
{
    LinkTextButton& link = linkOf(event);
    SDL_Cursor* const hand = handCursor();
    // The pointer comes a second time without having left after its window was closed meanwhile.
    link.hovered_ = true;
    if (hand == nullptr || SDL_GetCursor() == hand)
        return;
    link.cursorBefore_ = SDL_GetCursor();
    SDL_SetCursor(hand);
}

void LinkTextButton::onLeave(WidgetEvent& event)
{
    linkOf(event).endHover();
}

void LinkTextButton::endHover()
{
    if (!hovered_)
        return;
    hovered_ = false;
    if (cursorBefore_ != nullptr)
        SDL_SetCursor(cursorBefore_);
    cursorBefore_ = nullptr;
}

void LinkTextButton::drawContent()
{
    TextButton::drawContent();
    if (hovered_ && engine().pointer.hover().get() == this)
        drawUnderline();
}

/// Below the last line, as wide as the widest.
void LinkTextButton::drawUnderline()
{
    const TextLayout layout = boxLayout();
    if (layout.text.empty())
        return;
    const TextSize text = drawnSize(layout);
    if (!text.isValid())
        return;
    const auto across = static_cast<std::uint32_t>(textAlignment);
    const auto down = static_cast<std::uint32_t>(verticalTextAlignment);
    setColor(color, drawAlpha);
    fillTextBox({startOf(across, layout.width - text.width),
                 startOf(down, layout.height - text.height) + text.height - LineThickness,
                 text.width, LineThickness});
}

} // namespace nui
