#include "tools/nui_preview/page_switch.h"

#include "nui/widgets/pages_container.h"

namespace nrd::tools::preview {

bool switch_to_page(nui::Screen& screen, const std::string& name)
{
    nui::Widget* const page = screen.findByName(name);
    auto* const pages =
        page != nullptr ? dynamic_cast<nui::PagesContainer*>(page->parent) : nullptr;
    if (pages == nullptr) {
        return false;
    }
    pages->show(page->shared_from_this());
    return true;
}

} // namespace nrd::tools::preview
