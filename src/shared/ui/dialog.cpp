#include "shared/ui/dialog.h"

#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "shared/ui/first_keys.h"

#include <SDL_keycode.h>
#include <SDL_video.h>

namespace nrd::shared::ui {

namespace {

dialog& self(const nui::WidgetEvent& event)
{
    return static_cast<dialog&>(*static_cast<nui::Widget*>(event.user));
}

SDL_HitTestResult SDLCALL testTitle(SDL_Window* /*window*/, const SDL_Point* point, void* title)
{
    const auto& container = *static_cast<const nui::Widget*>(title);
    return static_cast<float>(point->y) < container.y + container.height ? SDL_HITTEST_DRAGGABLE
                                                                         : SDL_HITTEST_NORMAL;
}

} // namespace

// A copy finds its own children, when it is initialised.
dialog::dialog(const dialog& other)
    : Cloneable<dialog, nui::Screen>(other), result(other.result), on_ok(other.on_ok)
{
}

dialog& dialog::operator=(const dialog& other)
{
    if (this != &other) {
        nui::Screen::operator=(other);
        result = other.result;
        on_ok = other.on_ok;
        titleContainer_ = nullptr;
        okButton_ = nullptr;
        cancelButton_ = nullptr;
    }
    return *this;
}

void dialog::init(nui::WidgetPack& /*pack*/, nui::WidgetMap& /*widgets*/)
{
    titleContainer_ = findByName("title_container");
    okButton_ = findByName("ok_button");
    cancelButton_ = findByName("cancel_button");
    letKeysBegin(*this);
    nui::Widget* const user = this;
    if (okButton_ != nullptr)
        nui::subscribe(*okButton_, nui::plain_event::Activate, onOkClick, user);
    if (cancelButton_ == nullptr)
        return;
    nui::subscribe(*cancelButton_, nui::plain_event::Activate, onCancelClick, user);
    // Keys go to what has the keyboard, and no further.
    for (nui::Widget* const listened : {user, okButton_, cancelButton_}) {
        if (listened != nullptr)
            nui::subscribe(*listened, nui::keyboard::Down, onKey, user);
    }
}

void dialog::openWindow()
{
    nui::Screen::openWindow();
    if (titleContainer_ != nullptr && isOpen())
        SDL_SetWindowHitTest(window->sdlWindow(), testTitle, titleContainer_);
}

void dialog::onOkClick(nui::WidgetEvent& event)
{
    self(event).on_ok_pressed();
}

void dialog::onCancelClick(nui::WidgetEvent& event)
{
    self(event).on_cancel();
}

void dialog::onKey(nui::WidgetEvent& event)
{
    const auto& pressed = static_cast<const nui::KeyboardEvent&>(event);
    if (pressed.key != SDLK_ESCAPE)
        return;
    event.consume();
    if (!pressed.repeat)
        self(event).on_cancel();
}

void dialog::on_ok_pressed()
{
    result = ok;
    if (on_ok)
        on_ok();
    close();
}

void dialog::on_cancel()
{
    result = cancel;
    close();
}

void dialog::close()
{
    nui::engine().closeScreen(std::static_pointer_cast<nui::Screen>(shared_from_this()));
}

void show(const std::shared_ptr<dialog>& shown)
{
    nui::Engine& engine = nui::engine();
    const nui::ScreenPtr main = engine.screens.mainScreen();
    if (main != shown)
        shown->parent = main.get();
    shown->openWindow();
    engine.addScreen(shown);
    engine.screens.makeCurrent(shown);
    // What was pressed when it was shown last is not so any more.
    for (nui::Widget* const button : {shown->okButton_, shown->cancelButton_}) {
        if (button != nullptr)
            button->resetState();
    }
    // Return answers, and Tab has a place to start from.
    if (nui::Widget* const first =
            shown->okButton_ != nullptr ? shown->okButton_ : shown->cancelButton_) {
        shown->focusedWidget = first->shared_from_this();
        nui::KeyboardEvent gained(nui::keyboard::FocusGained);
        nui::dispatch(*first, gained, nui::Phase::AtTarget);
    }
}

int show_modal(const std::shared_ptr<dialog>& shown)
{
    nui::Engine& engine = nui::engine();
    show(shown);
    while (shown->result == 0 && !engine.hasQuit() && shown->isOpen()) {
        const bool frameDue = engine.step();
        if (shown->result == 0 && frameDue)
            engine.draw(false);
    }
    return shown->result;
}

} // namespace nrd::shared::ui
