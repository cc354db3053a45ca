#include "nui/menus/popup_menu_item.h"

#include "nui/engine/engine.h"
#include "nui/menus/popup_menu.h"
#include "nui/reader/nui_reader.h"

namespace nui {

namespace {

constexpr std::uint32_t FirstCommand = 1000;

std::uint32_t nextCommand()
{
    static std::uint32_t next = FirstCommand;
    return next++;
}

} // namespace

void PopupMenuItem::read(NuiReader& reader)
{
    std::string key;
    if (reader.readString(key, "text", true))
        setTextKey(key);
    reader.readString(name, "name", true);
    reader.readBool(checked, "checked");
    reader.readBool(radio, "radio");
    reader.readBool(enabled, "enabled");
    reader.readBool(visible, "visible");
    std::string keys;
    if (reader.readString(keys, "key", true)) {
        setShortcut(Shortcut::parse(keys));
        if (shortcut_.key == 0)
            reader.reportFault(LayoutFault::Kind::UnknownValue, keys, "key");
    }
}

void PopupMenuItem::reloadText()
{
    if (hasTextKey_)
        setTextKey(textKey_);
}

void PopupMenuItem::setTextKey(const std::string& key)
{
    textKey_ = key;
    hasTextKey_ = true;
    text_ = engine().lang ? engine().lang->getString(key) : key;
}

NativeMenuEntry PopupMenuItem::nativeEntry()
{
    NativeMenuEntry entry;
    entry.text = text_;
    entry.shortcut = shortcut_.displayText();
    entry.command = command();
    entry.checked = checked;
    entry.radio = radio;
    entry.enabled = enabled;
    return entry;
}

std::uint32_t PopupMenuItem::command()
{
    if (command_ == 0) {
        command_ = nextCommand();
        registerWithEngine();
    }
    return command_;
}

void PopupMenuItem::setShortcut(Shortcut shortcut)
{
    shortcut_ = shortcut;
    if (shortcut_.key != 0)
        registerWithEngine();
}

void PopupMenuItem::registerWithEngine()
{
    if (registered_)
        return;
    registered_ = true;
    engine().addMenuItem(shared_from_this());
}

void dispatch(PopupMenuItem& item, MenuEvent& event, Phase phase)
{
    event.target = &item;
    if (event.source == nullptr && phase == Phase::AtTarget)
        event.source = &item;
    event.phase = phase;
    item.listeners.call(event);
}

void activate(PopupMenuItem& item)
{
    // A listener may let the menu go.
    PopupMenuItemPtr receiver = item.shared_from_this();
    MenuEvent event(plain_event::Activate);
    dispatch(*receiver, event, Phase::AtTarget);
    while (event.stopLevel < stop_level::EndsBubble && receiver->parent != nullptr) {
        receiver = receiver->parent->shared_from_this();
        dispatch(*receiver, event, Phase::Bubbling);
    }
}

} // namespace nui
