#include "nui/menus/popup_menu.h"

#include "nui/reader/layout_loader.h"
#include "nui/reader/nesting.h"
#include "nui/reader/nui_reader.h"

namespace nui {

namespace {

std::string withName(const std::string& pattern, const std::string& name)
{
    std::string text;
    for (const char letter : pattern) {
        if (letter == '*')
            text += name;
        else
            text += letter;
    }
    return text;
}

} // namespace

PopupMenu::PopupMenu(NuiReader& reader)
{
    reader.readBool(isBar_, "main");
}

PopupMenu::~PopupMenu()
{
    for (const PopupMenuItemPtr& child : children_) {
        if (child->parent == this)
            child->parent = nullptr;
    }
}

void PopupMenu::read(NuiReader& reader)
{
    PopupMenuItem::read(reader);
    reader.readString(defaultTextKey_, "defaultTextKey", true);
    reader.readBool(defaultRadio_, "defaultRadio");
    reader.readString(id, "id", false);
    const LayoutLoader::Level level(reader.loader());
    for (auto item = reader.children(); item; item = item->next())
        readChild(*item);
}

void PopupMenu::readChild(NuiReader& reader)
{
    const PopupMenuPtr shared = reader.menuRefHere();
    if (!reader.loader().hasRoom(reader, shared ? levelsOf(*shared) : 1))
        return;
    if (shared) {
        add(shared);
        // It may open from several menus, and what happens in it ends there.
        shared->parent = nullptr;
        return;
    }
    PopupMenuItemPtr item;
    if (reader.has("children"))
        item = std::make_shared<PopupMenu>(reader);
    else
        item = std::make_shared<PopupMenuItem>();
    item->radio = defaultRadio_;
    item->read(reader);
    if (!defaultTextKey_.empty() && item->text().empty() && !item->name.empty())
        item->setTextKey(withName(defaultTextKey_, item->name));
    add(std::move(item));
}

void PopupMenu::reloadText()
{
    PopupMenuItem::reloadText();
    for (const PopupMenuItemPtr& child : children_)
        child->reloadText();
}

NativeMenuEntry PopupMenu::nativeEntry()
{
    NativeMenuEntry entry;
    entry.text = text();
    entry.enabled = enabled;
    entry.submenu = nativeMenu();
    return entry;
}

void PopupMenu::add(PopupMenuItemPtr item)
{
    item->parent = this;
    children_.push_back(std::move(item));
}

void* PopupMenu::nativeMenu()
{
    if (!native_) {
        native_ = std::make_unique<NativeMenu>(isBar_);
        registerWithEngine();
        fillNativeMenu();
    }
    return native_->handle();
}

bool PopupMenu::hasNativeMenu(const void* handle) const
{
    return native_ && native_->handle() == handle;
}

void PopupMenu::open()
{
    const PopupMenuItemPtr keptAlive = shared_from_this();
    MenuEvent event(plain_event::WindowOpening);
    dispatch(*this, event, Phase::AtTarget);
    if (native_)
        fillNativeMenu();
}

void PopupMenu::fillNativeMenu()
{
    native_->clear();
    for (const PopupMenuItemPtr& child : children_) {
        if (child->visible)
            native_->append(child->nativeEntry());
    }
}

} // namespace nui
