#include "nui/engine/event_handler.h"

#include "nui/draw/gl_context.h"
#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/menus/popup_menu_item.h"
#include "nui/widgets/screen.h"

#include <SDL.h>

#include <string>

namespace nui {

EventHandler::EventHandler(Engine& engine, std::uint32_t userEventType)
    : engine_(engine), userEventType_(userEventType)
{
    setNativeMessageHook([this](const NativeMessage& message) { onNativeMessage(message); });
    SDL_EventState(SDL_SYSWMEVENT, SDL_ENABLE);
    SDL_SetHint(SDL_HINT_WINDOWS_NO_CLOSE_ON_ALT_F4, "1");
    SDL_SetHint(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1");
    SDL_JoystickEventState(SDL_IGNORE);
}

EventHandler::~EventHandler()
{
    setNativeMessageHook({});
}

bool EventHandler::handleAll()
{
    bool buttons = false;
    SDL_Event event;
    while (SDL_PollEvent(&event) != 0) {
        handle(event);
        buttons = buttons || event.type == SDL_MOUSEBUTTONDOWN || event.type == SDL_MOUSEBUTTONUP;
    }
    return buttons;
}

void EventHandler::handle(const SDL_Event& event)
{
    if (event.type == userEventType_) {
        onMenuCommand(event.user);
        return;
    }
    engine_.keyboard.focusTaken = false;
    switch (event.type) {
    case SDL_QUIT:
        onQuit();
        break;
    case SDL_WINDOWEVENT:
        onWindowEvent(event.window);
        break;
    case SDL_SYSWMEVENT:
        onSystemMessage(event);
        break;
    case SDL_KEYDOWN:
    case SDL_KEYUP:
        engine_.keyboard.handleKey(event.key);
        break;
    case SDL_TEXTINPUT:
        engine_.keyboard.handleText(event.text);
        break;
    case SDL_TEXTEDITING:
        engine_.keyboard.handleComposition(event.edit);
        break;
    case SDL_MOUSEMOTION:
        engine_.pointer.handle({.type = touch::Move,
                                .x = event.motion.x,
                                .y = event.motion.y,
                                .windowId = event.motion.windowID,
                                .buttons = buttonBits(event.motion.state)});
        break;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
        onButton(event.button);
        break;
    case SDL_MOUSEWHEEL: {
        const auto notches = static_cast<float>(event.wheel.y);
        engine_.pointer.handle(
            {.type = touch::Wheel,
             .x = engine_.pointer.x(),
             .y = engine_.pointer.y(),
             .windowId = event.wheel.windowID,
             .wheel = event.wheel.direction == SDL_MOUSEWHEEL_FLIPPED ? -notches : notches});
        break;
    }
    case SDL_DROPBEGIN:
    case SDL_DROPFILE:
    case SDL_DROPCOMPLETE:
        onDrop(event);
        break;
    default:
        break;
    }
}

/// Called before SDL sees the message.
void EventHandler::onNativeMessage(const NativeMessage& message)
{
    if (message.message == native_message::NonClientLeftDown)
        frameClick_ = true;
    if (message.message != native_message::Command)
        return;
    for (const auto& [id, screen] : engine_.screens.all()) {
        if (!screen->isOpen() || !isNativeWindow(screen->window->sdlWindow(), message.window))
            continue;
        SDL_Event command = {};
        command.user.type = userEventType_;
        command.user.windowID = id;
        command.user.code = static_cast<std::int32_t>(message.wParam & 0xFFFFU);
        SDL_PushEvent(&command);
        return;
    }
}

void EventHandler::onMenuCommand(const SDL_UserEvent& event)
{
    frameClick_ = false;
    if (const ScreenPtr screen = engine_.screens.find(event.windowID); screen && screen->isOpen())
        engine_.screens.makeCurrent(screen);
    for (const std::weak_ptr<PopupMenuItem>& known : engine_.menuItems()) {
        const std::shared_ptr<PopupMenuItem> item = known.lock();
        if (item && item->hasCommand(static_cast<std::uint32_t>(event.code))) {
            MenuEvent activation;
            dispatch(*item, activation, Phase::AtTarget);
            return;
        }
    }
}

void EventHandler::onQuit()
{
    if (closeAllowed_)
        engine_.quit();
    closeAllowed_ = true;
    engine_.pointer.handle({});
}

void EventHandler::onWindowEvent(const SDL_WindowEvent& event)
{
    const ScreenPtr screen = engine_.screens.find(event.windowID);
    if (!screen || !screen->isOpen())
        return;
    engine_.screens.makeCurrent(screen);
    screen->window->frame.invalidate();
    switch (event.event) {
    case SDL_WINDOWEVENT_RESIZED:
        onResized(screen);
        break;
    case SDL_WINDOWEVENT_FOCUS_GAINED:
        onFocusGained(screen);
        break;
    case SDL_WINDOWEVENT_FOCUS_LOST:
        onFocusLost(screen);
        break;
    case SDL_WINDOWEVENT_CLOSE:
        onClose(screen);
        break;
    default:
        screen->window->noteEvent(event.event);
        break;
    }
}

void EventHandler::onResized(const ScreenPtr& screen)
{
    WindowEvent before(window::Resizing);
    dispatch(*screen, before, Phase::AtTarget);
    if (screen->isOpen())
        screen->window->readDrawableSize();
    if (engine_.metrics.read())
        engine_.screens.markAllDirty();
    if (const ScreenPtr& current = engine_.screens.current())
        current->markDirty();
    WindowEvent after(window::Resized);
    dispatch(*screen, after, Phase::AtTarget);
}

void EventHandler::onFocusGained(const ScreenPtr& screen)
{
    engine_.keyboard.focusScreen = screen;
    if (!screen->window->enabled)
        engine_.screens.raiseModalOver(screen);
    screen->window->noteEvent(SDL_WINDOWEVENT_FOCUS_GAINED);
}

void EventHandler::onFocusLost(const ScreenPtr& screen)
{
    screen->window->noteEvent(SDL_WINDOWEVENT_FOCUS_LOST);
    engine_.toolTips.clearTime();
    engine_.popups.closeOn(*screen);
}

void EventHandler::onClose(const ScreenPtr& screen)
{
    if (!screen->window->enabled) {
        // Not every window system keeps the user from closing what a modal window is over.
        engine_.screens.raiseModalOver(screen);
        return;
    }
    engine_.keyboard.setFocus(nullptr);
    engine_.popups.closeOn(*screen);
    WindowEvent closing(window::Closing);
    dispatch(*screen, closing, Phase::AtTarget);
    if (closing.prevented) {
        // SDL sends a quit after the last window's close, which must be refused along.
        closeAllowed_ = false;
        return;
    }
    engine_.screens.close(screen);
    closeAllowed_ = true;
}

void EventHandler::onSystemMessage(const SDL_Event& event)
{
    const std::optional<NativeMessage> message = nativeMessageOf(*event.syswm.msg);
    if (!message)
        return;
    if (message->message == native_message::InputLanguageChange &&
        engine_.changeLanguageAndFont(nullptr, true, [](const std::string&) {}))
        engine_.screens.markAllDirty();
    const bool menuByKeyboard =
        message->message == native_message::SystemKeyDown ||
        message->message == native_message::SystemKeyUp ||
        (message->message == native_message::SystemCommand &&
         (message->wParam & native_message::SystemCommandMask) == native_message::KeyMenu);
    if (menuByKeyboard && !engine_.pointer.isDown())
        passToSystem(*message);
    if (engine_.systemMessageCallback_)
        engine_.systemMessageCallback_(*message);
}

void EventHandler::onButton(const SDL_MouseButtonEvent& event)
{
    const bool down = event.type == SDL_MOUSEBUTTONDOWN;
    if (down && frameClick_ && event.y == 0) {
        frameClick_ = false;
        engine_.pointer.handle({});
        return;
    }
    engine_.pointer.handle({.type = down ? touch::Press : touch::Release,
                            .x = event.x,
                            .y = event.y,
                            .windowId = event.windowID,
                            .buttons = buttonBits(SDL_BUTTON(event.button)),
                            .clicks = event.clicks});
}

void EventHandler::onDrop(const SDL_Event& event)
{
    if (event.type == SDL_DROPBEGIN) {
        fileDrop_.files.clear();
        return;
    }
    if (event.type == SDL_DROPFILE) {
        fileDrop_.files.emplace_back(event.drop.file != nullptr ? event.drop.file : "");
        SDL_free(event.drop.file);
        return;
    }
    const ScreenPtr screen =
        event.drop.windowID != 0 ? engine_.screens.find(event.drop.windowID) : nullptr;
    if (!screen || !screen->isOpen())
        return;
    int pointerX = 0;
    int pointerY = 0;
    SDL_GetGlobalMouseState(&pointerX, &pointerY);
    const Rect client = screen->clientRect();
    FileDropEvent drop = fileDrop_;
    drop.x = pointerX - client.x;
    drop.y = pointerY - client.y;
    dispatch(*screen, drop, Phase::AtTarget);
}

} // namespace nui
