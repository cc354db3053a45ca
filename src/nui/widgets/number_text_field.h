#pragma once

#include "nui/widgets/text_field.h"

namespace nui {

/// A text field that keeps what an input method has composed as it stands, where others take the
/// finished text in its place.
class NumberTextField : public Cloneable<NumberTextField, TextField> {
public:
    void acceptText(const TextEvent& event) override;
    [[nodiscard]] const char* className() const override { return "NumberTextField"; }
};

} // namespace nui
