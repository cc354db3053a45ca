#include "shared/ui/bindable_classes.h"

#include "nui/reader/widget_registry.h"
#include "shared/ui/bindable_dropdown.h"
#include "shared/ui/bindable_number_fields.h"
#include "shared/ui/bindable_progress_bar.h"
#include "shared/ui/bindable_states.h"
#include "shared/ui/bindable_text.h"
#include "shared/ui/dialog.h"

namespace nrd::shared::ui {

namespace {

template <class... Widgets> void registerAll()
{
    (nui::registerWidgetClass(Widgets().className(),
                              std::make_unique<nui::DefaultWidgetFactory<Widgets>>()),
     ...);
}

} // namespace

void registerBindableClasses()
{
    registerAll<bindable_number_field, bindable_number_field_length, bindable_number_field_custom,
                bindable_checkbox, bindable_integer_textfield, bindable_textfield,
                bindable_textlabel, bindable_radio_button, bindable_radio_button_string,
                bindable_dropdown, bindable_multi_state_button, dialog, bindable_progress_bar>();
}

} // namespace nrd::shared::ui
