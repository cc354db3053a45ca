#pragma once

#include "nui/events/widget_events.h"

#include <cstdint>
#include <memory>
#include <vector>

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

    /// A window opens or closes: the keys that are down were not meant for what has the keyboard
    /// next, and count as repeated until they are let go.
    void noteHeldKeys();
    /// Marks those of them that are up. Events of theirs may still be waiting.
    void markReleasedKeys();
    /// Once the events are handled that were waiting when the keys were marked.
    void forgetReleasedKeys();

    /// Whether a widget took the focus during the event that is being handled.
    bool focusTaken = false;
    /// The screen that has the keyboard, or null.
    std::shared_ptr<Screen> focusScreen;

private:
    /// The screen of the window if it may have input; it becomes the current one.
    [[nodiscard]] std::shared_ptr<Screen> enabledScreen(std::uint32_t windowId);
    [[nodiscard]] WidgetPtr target(const std::shared_ptr<Screen>& screen) const;
    [[nodiscard]] bool isRepeated(const SDL_KeyboardEvent& key) const;
    void activateShortcut(const SDL_KeyboardEvent& key);

    struct HeldKey {
        std::int32_t code = 0; ///< SDL_Keycode
        bool released = false;
    };

    Engine& engine_;
    std::vector<HeldKey> heldKeys_;
};

} // namespace nui
