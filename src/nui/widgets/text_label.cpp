#include "nui/widgets/text_label.h"

#include "nui/engine/engine.h"
#include "nui/reader/nui_reader.h"

namespace nui {

bool TextLabel::read(NuiReader& reader)
{
    Widget::read(reader);
    if (reader.readString(textKey_, "text", true))
        reloadText();
    return true;
}

void TextLabel::reloadText()
{
    if (!textKey_.empty())
        text_ = engine().lang ? engine().lang->getString(textKey_) : textKey_;
}

void TextLabel::setText(const std::string& plainText)
{
    textKey_.clear();
    text_ = plainText;
}

} // namespace nui
