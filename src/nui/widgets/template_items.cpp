#include "nui/widgets/template_items.h"

#include "nui/engine/engine.h"
#include "nui/widgets/container.h"
#include "nui/widgets/text_label.h"

namespace nui {

WidgetPtr itemOf(const WidgetPtr& source)
{
    WidgetPtr item = source->clone();
    if (item->stateTemplates)
        item->stateTemplates->normal = source;
    return item;
}

TextLabel* labelIn(Widget& widget)
{
    if (auto* const label = dynamic_cast<TextLabel*>(&widget))
        return label;
    if (const auto* const container = dynamic_cast<const Container*>(&widget)) {
        for (const WidgetPtr& child : container->children()) {
            if (TextLabel* const label = labelIn(*child))
                return label;
        }
    }
    return nullptr;
}

std::string translated(const std::string& key)
{
    const Lang* const lang = engine().lang.get();
    return lang == nullptr || key.empty() ? key : lang->getString(key);
}

} // namespace nui
