#include "nui/reader/nesting.h"

#include "nui/menus/popup_menu.h"
#include "nui/widgets/container.h"

#include <algorithm>
#include <unordered_map>

namespace nui {

namespace {

template <class Parent, class Item>
int levels(const Item& item, std::unordered_map<const Item*, int>& known)
{
    const auto* const parent = dynamic_cast<const Parent*>(&item);
    if (parent == nullptr || parent->children().empty())
        return 1;
    if (const auto found = known.find(&item); found != known.end())
        return found->second;
    int deepest = 0;
    for (const auto& child : parent->children())
        deepest = std::max(deepest, levels<Parent, Item>(*child, known));
    known.emplace(&item, deepest + 1);
    return deepest + 1;
}

} // namespace

int levelsOf(const Widget& widget)
{
    std::unordered_map<const Widget*, int> known;
    return levels<Container>(widget, known);
}

int levelsOf(const PopupMenu& menu)
{
    std::unordered_map<const PopupMenuItem*, int> known;
    return levels<PopupMenu, PopupMenuItem>(menu, known);
}

} // namespace nui
