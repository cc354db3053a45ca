#pragma once

#include "nui/widgets/reloadable_text.h"
#include "nui/widgets/widget.h"

#include <string>

namespace nui {

/// A widget with a text, which is looked up in the language when it is read.
class TextLabel : public Cloneable<TextLabel, Widget>, public ReloadableText {
public:
    bool read(NuiReader& reader) override;
    void reloadText() override;
    [[nodiscard]] const char* className() const override { return "TextLabel"; }

    virtual void setText(const std::string& plainText);
    [[nodiscard]] const std::string& text() const { return text_; }

private:
    std::string text_;
    std::string textKey_;
};

} // namespace nui
