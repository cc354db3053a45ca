#pragma once

#include "nui/events/widget_events.h"
#include "nui/native_window.h"

#include <cstdint>

union SDL_Event;
struct SDL_MouseButtonEvent;
struct SDL_UserEvent;
struct SDL_WindowEvent;

namespace nui {

class Engine;
class Screen;

/// What each SDL event does. Owned by the engine; for the loop's thread.
class EventHandler {
public:
    /// `userEventType` is SDL's number for menu commands, registered by the caller.
    EventHandler(Engine& engine, std::uint32_t userEventType);
    EventHandler(const EventHandler&) = delete;
    EventHandler& operator=(const EventHandler&) = delete;
    ~EventHandler();

    /// Handles all events that wait; answers whether a button event was among them.
    bool handleAll();
    void handle(const SDL_Event& event);

private:
    void onNativeMessage(const NativeMessage& message);
    void onMenuCommand(const SDL_UserEvent& event);
    void onQuit();
    void onWindowEvent(const SDL_WindowEvent& event);
    void onResized(const std::shared_ptr<Screen>& screen);
    void onFocusGained(const std::shared_ptr<Screen>& screen);
    void onFocusLost(const std::shared_ptr<Screen>& screen);
    void onClose(const std::shared_ptr<Screen>& screen);
    void onSystemMessage(const SDL_Event& event);
    void onButton(const SDL_MouseButtonEvent& event);
    void onDrop(const SDL_Event& event);

    Engine& engine_;
    FileDropEvent fileDrop_;
    std::uint32_t userEventType_;
    /// A click on a window's frame is under way; only the native message hook knows.
    bool frameClick_ = false;
    /// False after a listener refused a close: the SDL_QUIT that follows is swallowed.
    bool closeAllowed_ = true;
};

} // namespace nui
