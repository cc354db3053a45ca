#include "tools/nui_preview/page_switch.h"

namespace nrd::tools::preview {

bool switch_to_page(nui::Screen& screen, const std::string& name)
{
    nui::Widget* const page = screen.findByName(name);
    auto* const holder = page != nullptr ? dynamic_cast<nui::Container*>(page->parent) : nullptr;
    if (holder == nullptr) {
        return false;
    }
    for (const nui::WidgetPtr& sibling : holder->children()) {
        sibling->visibility = nui::visibility::Collapsed;
    }
    page->visibility = nui::visibility::Visible;
    screen.markDirty();
    return true;
}

} // namespace nrd::tools::preview
