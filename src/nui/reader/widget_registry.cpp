#include "nui/reader/widget_registry.h"

#include "nui/widgets/breadcrumbs.h"
#include "nui/widgets/default_tool_tip.h"
#include "nui/widgets/drop_down.h"
#include "nui/widgets/image_array.h"
#include "nui/widgets/image_button.h"
#include "nui/widgets/ip_address_field.h"
#include "nui/widgets/link_text_button.h"
#include "nui/widgets/list_box.h"
#include "nui/widgets/more_button.h"
#include "nui/widgets/multi_state_button.h"
#include "nui/widgets/number_field.h"
#include "nui/widgets/number_text_field.h"
#include "nui/widgets/ok_cancel_button.h"
#include "nui/widgets/overlay.h"
#include "nui/widgets/pages_container.h"
#include "nui/widgets/progress_bar.h"
#include "nui/widgets/screen.h"
#include "nui/widgets/selectable_image.h"
#include "nui/widgets/selection_list.h"
#include "nui/widgets/slider.h"
#include "nui/widgets/solid_scrollbar.h"
#include "nui/widgets/toggle_button.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace nui {

namespace {

/// djb2 over the bytes, ASCII letters as small ones.
std::uint32_t hashOf(std::string_view className)
{
    std::uint32_t hash = 5381;
    for (const char letter : className) {
        const bool isUpper = letter >= 'A' && letter <= 'Z';
        const auto byte = static_cast<unsigned char>(isUpper ? letter - 'A' + 'a' : letter);
        hash = hash * 33 + byte;
    }
    return hash;
}

using Entry = std::pair<std::uint32_t, std::unique_ptr<WidgetFactory>>;

/// Never destroyed, as a factory may be of an application's module that is gone by then.
std::vector<Entry>& entries()
{
    static auto& all = *new std::vector<Entry>;
    return all;
}

template <class T> void registerClass(std::string_view className)
{
    registerWidgetClass(className, std::make_unique<DefaultWidgetFactory<T>>());
}

bool registerAll()
{
    registerClass<Widget>("Widget");
    registerClass<Container>("Container");
    registerClass<Image>("Image");
    registerClass<TextLabel>("TextLabel");
    registerClass<TextButton>("TextButton");
    registerClass<ToggleButton>("ToggleButton");
    registerClass<TextField>("TextField");
    registerClass<Overlay>("Overlay");
    registerClass<SolidScrollbar>("SolidScrollbar");
    registerClass<SolidScrollbarChannel>("SolidScrollbarChannel");
    registerClass<Slider>("Slider");
    registerClass<SelectionList>("SelectionList");
    registerClass<DropDown>("DropDown");
    registerClass<ImageArray>("ImageArray");
    registerClass<MultiStateButton>("MultiStateButton");
    registerClass<NumberField>("NumberField");
    registerClass<Breadcrumbs>("Breadcrumbs");
    registerClass<ProgressBar>("ProgressBar");
    registerClass<PagesContainer>("PagesContainer");
    registerClass<DefaultToolTip>("DefaultToolTip");
    registerClass<MoreButton>("MoreButton");
    registerClass<LinkTextButton>("LinkTextButton");
    registerClass<ImageButton>("ImageButton");
    registerClass<SelectableImage>("SelectableImage");
    registerClass<Screen>("Screen");
    registerClass<IpAddressField>("IpAddressField");
    registerClass<OkCancelButton>("OkCancelButton");
    registerClass<ListBox>("ListBox");
    registerClass<NumberTextField>("NumberTextField");
    return true;
}

} // namespace

void registerWidgetClass(std::string_view className, std::unique_ptr<WidgetFactory> factory)
{
    entries().emplace_back(hashOf(className), std::move(factory));
}

void registerToolkitClasses()
{
    [[maybe_unused]] static const bool registered = registerAll();
}

WidgetPtr createWidget(const char* className)
{
    if (className == nullptr)
        return nullptr;
    const std::uint32_t hash = hashOf(className);
    for (const auto& [known, factory] : entries()) {
        if (known == hash)
            return factory->create();
    }
    return nullptr;
}

} // namespace nui
