#pragma once

#include "nui/widgets/list_box.h"

#include <set>

namespace nui {

/// A list of whose items any number is selected: with Ctrl one by one, with Shift all up to where
/// the selection began. With Ctrl the keys move without selecting, and space selects.
class SelectionList : public Cloneable<SelectionList, ListBox> {
public:
    void drawChildren(Point position) override;
    [[nodiscard]] const char* className() const override { return "SelectionList"; }

    /// Selects that item alone.
    void select(std::int32_t index) override;
    [[nodiscard]] bool isSelected(std::int32_t index) const override
    {
        return selection_.contains(index);
    }
    [[nodiscard]] const std::set<std::int32_t>& selection() const { return selection_; }
    /// Raises nothing. Indices that have no item are left out.
    void setSelection(const std::set<std::int32_t>& indices);

protected:
    void choose(std::int32_t index, By by, std::uint16_t modifiers) override;
    bool handleOtherKey(std::int32_t key, std::uint16_t modifiers) override;

private:
    [[nodiscard]] std::set<std::int32_t> usableBetween(std::int32_t one, std::int32_t other) const;
    void selectByUser(std::set<std::int32_t> indices);
    void toggle(std::int32_t index);

    std::set<std::int32_t> selection_;
    std::int32_t anchor_ = None; ///< where a selection with Shift begins
};

} // namespace nui
