#include "nui/widgets/number_text_field.h"

namespace nui {

void NumberTextField::acceptText(const TextEvent& event)
{
    if (isComposing())
        setComposing(false);
    else
        insertText(event.text);
}

} // namespace nui
