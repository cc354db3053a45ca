#include "shared/ui/bindable_text.h"

#include "nui/reader/nui_reader.h"

#include <stdexcept>

namespace nrd::shared::ui {

bool bindable_textfield::read(nui::NuiReader& reader)
{
    TextField::read(reader);
    reader.readBool(wordWrap, "wordWrap");
    reader.readInt(maxLines, "maxLines");
    return true;
}

int bindable_integer_textfield::getWidgetValue()
{
    // The words of the product's own runtime library, whatever library this is.
    try {
        return std::stoi(getText());
    } catch (const std::invalid_argument&) {
        throw std::invalid_argument("invalid stoi argument");
    } catch (const std::out_of_range&) {
        throw std::out_of_range("stoi argument out of range");
    }
}

} // namespace nrd::shared::ui
