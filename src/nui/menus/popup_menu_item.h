#pragma once

#include "nui/events/event.h"
#include "nui/menus/native_menu.h"
#include "nui/menus/shortcut.h"
#include "nui/widgets/reloadable_text.h"

#include <cstdint>
#include <memory>
#include <string>

namespace nui {

class NuiReader;
class PopupMenu;
class PopupMenuItem;

using MenuEvent = EventTemplate<PopupMenuItem>;
using PopupMenuItemPtr = std::shared_ptr<PopupMenuItem>;

/// One item of a menu. Held by its menus; the engine knows it weakly once it has a shortcut or a
/// command number. For the loop's thread.
class PopupMenuItem : public std::enable_shared_from_this<PopupMenuItem>, public ReloadableText {
public:
    PopupMenuItem() = default;
    PopupMenuItem(const PopupMenuItem&) = delete;
    PopupMenuItem& operator=(const PopupMenuItem&) = delete;

    virtual void read(NuiReader& reader);
    void reloadText() override;
    /// What the native menu shows of it.
    [[nodiscard]] virtual NativeMenuEntry nativeEntry();

    /// The number that the window system sends for it: given on first request, from 1000 on.
    std::uint32_t command();
    /// Whether it has been given that number; asks for none.
    [[nodiscard]] bool hasCommand(std::uint32_t number) const
    {
        return command_ != 0 && command_ == number;
    }

    void setShortcut(Shortcut shortcut);
    [[nodiscard]] const Shortcut& shortcut() const { return shortcut_; }
    /// Shows the text of a language key.
    void setTextKey(const std::string& key);
    [[nodiscard]] const std::string& text() const { return text_; }
    /// Whether the text comes from a key.
    [[nodiscard]] bool hasTextKey() const { return hasTextKey_; }
    [[nodiscard]] const std::string& textKey() const { return textKey_; }

    std::string name;
    bool checked = false;
    bool radio = false; ///< one of several of which one is checked
    bool enabled = true;
    bool visible = true;
    PopupMenu* parent = nullptr; ///< null for a menu that several share
    ListenerListOf<PopupMenuItem> listeners{this};

protected:
    /// Lets the engine know the item; once.
    void registerWithEngine();

private:
    std::string text_;
    std::string textKey_;
    bool hasTextKey_ = false;
    Shortcut shortcut_;
    std::uint32_t command_ = 0;
    bool registered_ = false;
};

/// Gives the event to the item's own listeners. At the target, the item becomes the event's source
/// unless there is one.
void dispatch(PopupMenuItem& item, MenuEvent& event, Phase phase);

/// The shortcut of the item was pressed: it and then its menus hear of it (type 0) until a
/// listener ends it.
void activate(PopupMenuItem& item);

} // namespace nui
