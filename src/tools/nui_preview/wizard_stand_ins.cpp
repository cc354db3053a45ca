#include "tools/nui_preview/wizard_stand_ins.h"

#include "nui/engine/engine.h"
#include "nui/reader/widget_registry.h"
#include "nui/widgets/pages_container.h"
#include "nui/widgets/screen.h"
#include "nui/widgets/text_label.h"
#include "shared/ui/bindable_progress_bar.h"

#include <string>

namespace nrd::tools::preview {

namespace {

constexpr const char* product = "Velmora Studio 5";
constexpr const char* install_path = "C:\\Program Files\\Velmora Studio 5";
constexpr float part_done = 0.42F;

nui::TextLabel* label(nui::Container& page, const char* name)
{
    return dynamic_cast<nui::TextLabel*>(page.findByName(name));
}

void put_around(nui::Container& page, const char* name, const std::string& before,
                const std::string& behind)
{
    if (nui::TextLabel* const found = label(page, name)) {
        found->setText(before + found->getText() + behind);
    }
}

std::string text_of(const char* key)
{
    return nui::engine().lang->getText(key);
}

class window_stand_in : public nui::Cloneable<window_stand_in, nui::Screen>,
                        public nui::ModuleInit {
public:
    void init(nui::WidgetPack& /*pack*/, nui::WidgetMap& /*widgets*/) override
    {
        setTitle(std::string("Install ") + product);
        auto* const pages = dynamic_cast<nui::PagesContainer*>(findByName("tab_holder"));
        if (pages != nullptr && !pages->children().empty()) {
            pages->show(pages->children().front());
        }
    }
};

class welcome_stand_in : public nui::Cloneable<welcome_stand_in, nui::Container>,
                         public nui::ModuleInit {
public:
    void init(nui::WidgetPack& /*pack*/, nui::WidgetMap& /*widgets*/) override
    {
        const bool name_first = nui::engine().lang->languageUnicode == "jp";
        put_around(*this, "title_label", name_first ? product : "", name_first ? "" : product);
        put_around(*this, "body_text", product, "");
        put_around(*this, "install_path_textfield", "", install_path);
    }
};

class installing_stand_in : public nui::Cloneable<installing_stand_in, nui::Container>,
                            public nui::ModuleInit {
public:
    void init(nui::WidgetPack& /*pack*/, nui::WidgetMap& /*widgets*/) override
    {
        put_around(*this, "file_label", "", "vs5_cutting_helper.exe");
        if (auto* const bar =
                dynamic_cast<shared::ui::bindable_progress_bar*>(findByName("progress_bar"))) {
            bar->setWidgetValue(part_done);
        }
    }
};

class end_stand_in : public nui::Cloneable<end_stand_in, nui::Container>, public nui::ModuleInit {
public:
    void init(nui::WidgetPack& /*pack*/, nui::WidgetMap& /*widgets*/) override
    {
        put_around(*this, "install_success_message", "", text_of("installation_complete"));
        put_around(*this, "install_body_text", "", product);
    }
};

class dialog_stand_in : public nui::Cloneable<dialog_stand_in, nui::Screen>,
                        public nui::ModuleInit {
public:
    void init(nui::WidgetPack& /*pack*/, nui::WidgetMap& /*widgets*/) override
    {
        if (name == "already_installed_dialog_main") {
            put_around(*this, "warning_message", product, std::string("\n") + install_path);
        } else if (name == "program_running_dialog_main") {
            if (nui::TextLabel* const warning = label(*this, "warning_message")) {
                warning->setText(text_of("close_processes") +
                                 "\n\nVelmora Studio 5\nVelmora Cutting Helper\n");
            }
        }
    }
};

template <class Widget> void register_class(const char* name)
{
    nui::registerWidgetClass(name, std::make_unique<nui::DefaultWidgetFactory<Widget>>());
}

} // namespace

void register_wizard_stand_ins()
{
    register_class<window_stand_in>("installer_window");
    register_class<welcome_stand_in>("welcome_tab");
    register_class<installing_stand_in>("installing_tab");
    register_class<end_stand_in>("end_tab");
    register_class<dialog_stand_in>("dialog");
}

} // namespace nrd::tools::preview
