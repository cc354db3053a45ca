#include "vs/vs_installer/widget_injection.h"

#include "inst/installer/model/end_tab_model.h"
#include "inst/installer/model/installer_app.h"
#include "inst/installer/model/installer_window_model.h"
#include "inst/installer/model/installing_tab_model.h"
#include "inst/installer/model/welcome_tab_model.h"
#include "inst/installer/ui/end_tab.h"
#include "inst/installer/ui/installer_window.h"
#include "inst/installer/ui/installing_tab.h"
#include "inst/installer/ui/welcome_tab.h"
#include "nui/reader/widget_registry.h"
#include "shared/ui/bindable_dropdown.h"
#include "shared/ui/bindable_number_fields.h"
#include "shared/ui/bindable_progress_bar.h"
#include "shared/ui/bindable_states.h"
#include "shared/ui/bindable_text.h"
#include "shared/ui/dialog.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace nrd::vs_installer {

namespace {

using namespace installer;

/// What main made.
const installation::specs*& given_specs()
{
    static const installation::specs* specs = nullptr;
    return specs;
}

model::installer_app& the_app()
{
    static model::installer_app only(*given_specs());
    return only;
}

/// Goes at the end of the process, before the app, and waits for its worker then: the pages, which
/// may be there longer, own none of them.
template <class Model> Model& the_model()
{
    static Model only(the_app());
    return only;
}

/// Knows what the constructors of widgets take. Has no state of its own.
class injector {
public:
    template <class Widget> [[nodiscard]] std::shared_ptr<Widget> create() const
    {
        return std::make_shared<Widget>();
    }
};

template <> std::shared_ptr<ui::installer_window> injector::create() const
{
    return std::make_shared<ui::installer_window>(the_model<model::installer_window_model>());
}

template <> std::shared_ptr<ui::welcome_tab> injector::create() const
{
    return std::make_shared<ui::welcome_tab>(the_model<model::welcome_tab_model>());
}

template <> std::shared_ptr<ui::installing_tab> injector::create() const
{
    return std::make_shared<ui::installing_tab>(the_model<model::installing_tab_model>());
}

template <> std::shared_ptr<ui::end_tab> injector::create() const
{
    return std::make_shared<ui::end_tab>(the_model<model::end_tab_model>());
}

// Named as the toolkit names its factories.
template <class Injector, class T>
class InjectorWidgetFactory : public nui::WidgetFactory { // NOLINT(readability-identifier-naming)
public:
    [[nodiscard]] nui::WidgetPtr create() override { return injector_.template create<T>(); }

private:
    Injector injector_;
};

std::vector<std::string> split_names(std::string_view names)
{
    constexpr std::string_view separators = ", ";
    std::vector<std::string> result;
    for (std::size_t begin = names.find_first_not_of(separators); begin != names.npos;
         begin = names.find_first_not_of(separators, begin)) {
        const std::size_t end = std::min(names.find_first_of(separators, begin), names.size());
        result.emplace_back(names.substr(begin, end - begin));
        begin = end;
    }
    return result;
}

/// The n-th name belongs to the n-th class.
template <class... Classes> void register_classes(const std::vector<std::string>& names)
{
    if (names.size() != sizeof...(Classes)) {
        throw std::invalid_argument("There are " + std::to_string(sizeof...(Classes)) +
                                    " widget classes and " + std::to_string(names.size()) +
                                    " names for them.");
    }
    auto name = names.begin();
    (nui::registerWidgetClass(*name++,
                              std::make_unique<InjectorWidgetFactory<injector, Classes>>()),
     ...);
}

} // namespace

void register_widgets(const installation::specs& specs, std::string_view names)
{
    using namespace shared::ui;
    given_specs() = &specs;
    register_classes<bindable_number_field, bindable_number_field_length,
                     bindable_number_field_custom, bindable_checkbox, bindable_integer_textfield,
                     bindable_textfield, bindable_textlabel, bindable_radio_button,
                     bindable_radio_button_string, bindable_dropdown, bindable_multi_state_button,
                     dialog, bindable_progress_bar, ui::installer_window, ui::welcome_tab,
                     ui::installing_tab, ui::end_tab>(split_names(names));
}

} // namespace nrd::vs_installer
