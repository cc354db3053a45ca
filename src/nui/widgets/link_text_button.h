#pragma once

#include "nui/widgets/text_button.h"

struct SDL_Cursor;

namespace nui {

/// A text button that looks like a link: while the pointer is over it, its text is underlined and
/// the pointer is the system's hand.
class LinkTextButton : public Cloneable<LinkTextButton, TextButton> {
public:
    LinkTextButton();
    /// A copy is not under the pointer.
    LinkTextButton(const LinkTextButton& other);
    LinkTextButton& operator=(const LinkTextButton& other);
    ~LinkTextButton() override;

    void drawContent() override;
    [[nodiscard]] const char* className() const override { return "LinkTextButton"; }

    [[nodiscard]] bool isHovered() const { return hovered_; }

private:
    static void onEnter(WidgetEvent& event);
    static void onLeave(WidgetEvent& event);
    void endHover();
    void drawUnderline();

    bool hovered_ = false;
    SDL_Cursor* cursorBefore_ = nullptr; ///< of whoever set it
};

} // namespace nui
