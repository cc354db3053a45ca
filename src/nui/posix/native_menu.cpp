#include "nui/menus/native_menu.h"

#include "nui/posix/native_menu_model.h"

namespace nui {

namespace {

NativeMenuModel& model(void* handle)
{
    return *static_cast<NativeMenuModel*>(handle);
}

} // namespace

NativeMenu::NativeMenu(bool isBar) : handle_(new NativeMenuModel{isBar, {}}) {}

NativeMenu::~NativeMenu()
{
    delete &model(handle_);
}

void NativeMenu::append(const NativeMenuEntry& entry)
{
    model(handle_).entries.push_back(entry);
}

void NativeMenu::clear()
{
    model(handle_).entries.clear();
}

} // namespace nui
