#pragma once

#include "nui/events/widget_events.h"

#include <cstdint>
#include <memory>

struct SDL_KeyboardEvent;
struct SDL_TextEditingEvent;
struct SDL_TextInputEvent;

namespace nui {

class Engine;
class Screen;

/// Keys, typed text and the keyboard focus. Key events do not bubble. Owned by the engine; for
/// the loop's thread.
class KeyboardPath {
public:
    explicit KeyboardPath(Engine& engine) : engine_(engine) {}

    void handleKey(const SDL_KeyboardEvent& key);
    void handleText(const SDL_TextInputEvent& input);
    void handleComposition(const SDL_TextEditingEvent& editing);
    /// For text that is longer than an event of SDL's can be.
    void dispatchText(std::uint32_t windowId, TextEvent& event);

    /// Gives the focus within the current screen; null takes it away. Only while the current
    /// screen has the keyboard.
    void setFocus(const WidgetPtr& widget);

    /// Takes the focus from a tree that is about to go from its screen.
    void forgetTree(Widget& root);

    /// Whether a widget took the focus during the event that is being handled.
    bool focusTaken = false;
    /// The screen that has the keyboard, or null.
    std::shared_ptr<Screen> focusScreen;

private:
    /// The screen of the window if it may have input; it becomes the current one.
    [[nodiscard]] std::shared_ptr<Screen> enabledScreen(std::uint32_t windowId);
    [[nodiscard]] WidgetPtr target(const std::shared_ptr<Screen>& screen) const;
    void activateShortcut(const SDL_KeyboardEvent& key);

    Engine& engine_;
};

} // namespace nui
