#pragma once

#include "nui/menus/popup_menu_item.h"

#include <memory>
#include <string>
#include <vector>

namespace nui {

using PopupMenuPtr = std::shared_ptr<PopupMenu>;

/// A menu and its items; as an item of another menu, what opens it. A menu of a layout file may
/// stand in several others, and has no parent then.
class PopupMenu : public PopupMenuItem {
public:
    /// `isBar`: the menu bar of a window.
    explicit PopupMenu(bool isBar) : isBar_(isBar) {}
    /// Asks the reader's object only whether it is a bar; read() takes the rest.
    explicit PopupMenu(NuiReader& reader);
    ~PopupMenu() override;

    void read(NuiReader& reader) override;
    void reloadText() override;
    [[nodiscard]] NativeMenuEntry nativeEntry() override;

    void add(PopupMenuItemPtr item);
    [[nodiscard]] const std::vector<PopupMenuItemPtr>& children() const { return children_; }
    [[nodiscard]] bool isBar() const { return isBar_; }

    /// Handle of the native menu, made on first request with what the items are by then. The
    /// engine knows the menu from then on.
    [[nodiscard]] void* nativeMenu();
    [[nodiscard]] bool hasNativeMenu(const void* handle) const;
    /// The native menu is about to open: lets the listeners of WindowOpening (type 4) bring the
    /// items up to date, and shows them as they are then.
    void open();

    std::string id; ///< key in the reader's map

private:
    void readChild(NuiReader& reader);
    void fillNativeMenu();

    bool isBar_ = false;
    bool defaultRadio_ = false;
    std::string defaultTextKey_; ///< text key of items that have only a name, which is its "*"
    std::vector<PopupMenuItemPtr> children_;
    std::unique_ptr<NativeMenu> native_;
};

} // namespace nui
