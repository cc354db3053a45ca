#pragma once

#include "nui/animation/tween.h"
#include "nui/text/text_edit_state.h"
#include "nui/widgets/text_button.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace nui {

class PopupList;
class PopupMenu;

/// A text that the user edits, on one line or many, with caret, selection, clipboard, input
/// methods and a hint. Places count characters. Each edit raises text::Changed on the field after
/// it holds the new text, also one that changed nothing; it bubbles.
class TextField : public Cloneable<TextField, TextButton> {
public:
    TextField();
    /// A copy has neither the keyboard nor a selection.
    TextField(const TextField& other);
    TextField& operator=(const TextField& other);
    ~TextField() override;

    void drawContent() override;
    void place() override;
    bool read(NuiReader& reader) override;
    void reloadText() override;
    void setText(const std::string& newText) override;
    /// A field has no click.
    void armClick() override {}
    [[nodiscard]] const char* className() const override { return "TextField"; }

    /// In place of the selection, by the field's rules; see TextEditState. Answers how many
    /// characters have come in.
    virtual std::int32_t insertText(const std::string& inserted);
    /// What the keyboard or an input method has to say for good.
    virtual void acceptText(const TextEvent& event);

    [[nodiscard]] std::int32_t caret() const { return caret_; }
    [[nodiscard]] std::int32_t anchor() const { return anchor_; }
    /// A place outside the text is its end. Nothing is selected then.
    void setCaret(std::int32_t index);
    void selectAll();
    /// False if there was nothing to remove.
    bool deleteSelection();
    /// False if nothing is selected, and for passwords.
    bool copy() const;
    void cut();
    /// Raises text::Pasting first.
    void paste();

    /// What an item of the engine's text menu does; other names do nothing.
    void runMenuCommand(const std::string& item);
    [[nodiscard]] bool isMenuOpen() const;

    [[nodiscard]] bool isFocused() const { return focused_; }
    [[nodiscard]] bool isComposing() const { return composing_; }
    [[nodiscard]] bool isReadOnly() const { return rules_.readOnly; }
    void setReadOnly(bool set) { rules_.readOnly = set; }
    void setInputType(InputType type) { rules_.inputType = type; }
    void setCharacterType(CharacterType type) { rules_.characterType = type; }
    void setMultiline(bool set) { rules_.multiline = set; }
    /// From 2 on, one line that scrolls.
    void setVersion(std::uint32_t version) { rules_.version = version; }
    void setMaxLength(std::uint32_t characters) { rules_.maxLength = characters; }
    /// What an empty field shows.
    void setHint(const std::string& hint) { rules_.hintText = hint; }
    /// How far the text of a field with class_version 2 is moved; never above 0.
    [[nodiscard]] float scrollX() const { return scrollX_; }

protected:
    [[nodiscard]] Font* font() const override;
    [[nodiscard]] std::string_view shownText() const override;
    [[nodiscard]] std::string_view measuredText() const override;
    void prepareText() override;
    void setComposing(bool set) { composing_ = set; }

private:
    /// What layout files say.
    struct Rules {
        std::string hintKey;
        std::string hintText;
        Color hintColor = OpaqueBlack;
        bool multiline = false;
        std::uint32_t maxLength = 0; ///< characters; 0 is no limit
        std::uint32_t version = 1;   ///< from 2 on, one line that scrolls
        bool readOnly = false;
        CharacterType characterType = CharacterType::AsciiAndUnicode;
        InputType inputType = InputType::Normal;
        Color caretColor = OpaqueBlack;
        Color selectionColor = OpaqueBlack;
    };

    [[nodiscard]] bool scrolls() const { return rules_.version >= 2; }
    [[nodiscard]] bool isPassword() const { return rules_.inputType == InputType::Password; }
    [[nodiscard]] TextEditState editState() const;
    /// Takes over what an edit has made, and tells everybody.
    void finishEdit(const TextEditState& state);
    void moveTo(std::int32_t newCaret, std::int32_t newAnchor);
    /// Moves both, and the view with the caret.
    void finishMove(std::int32_t newCaret, std::int32_t newAnchor);
    void raise(EventType type);
    void reloadHint();

    // text_field_events.cpp
    static void onFocusGained(WidgetEvent& event);
    static void onFocusLost(WidgetEvent& event);
    static void onTextInput(WidgetEvent& event);
    static void onComposition(WidgetEvent& event);
    static void onPress(WidgetEvent& event);
    static void onDrag(WidgetEvent& event);
    static void onRelease(WidgetEvent& event);
    void pressAt(TouchEvent& event);
    void compose(const TextEvent& event);
    [[nodiscard]] std::int32_t indexAt(Point onWindow) const;
    [[nodiscard]] std::int32_t indexAtBoxPoint(Point inBox) const;

    // text_field_keys.cpp
    static void onKey(WidgetEvent& event);
    [[nodiscard]] bool handleEditKey(std::int32_t key, bool extend);
    [[nodiscard]] bool handleCommandKey(std::int32_t key);
    bool removeBeside(bool backward);
    void moveBy(std::int32_t step, bool extend);
    bool moveByLine(bool down, bool extend);

    // text_field_menu.cpp
    void prepareMenu(PopupMenu& menu) const;
    bool openContextMenu(Point onWindow);
    [[nodiscard]] bool handleMenuKey(WidgetEvent& event);
    void closeMenu();

    // text_field_draw.cpp
    void drawField();
    void drawScrolled();
    void drawHint();
    void drawMarked(TextLayout layout, Point corner, Color textColor);
    void sendInputRect();
    void followCaret();
    void restartBlink();
    void stopBlink();
    /// Between characters of the text and of what is shown in its place.
    [[nodiscard]] std::int32_t toShown(std::int32_t index) const;
    [[nodiscard]] std::int32_t fromShown(std::int32_t index) const;

    Rules rules_;
    float scrollX_ = 0;
    std::string lineText_;   ///< what a field that scrolls has drawn last
    bool composing_ = false; ///< what an input method composes stands selected in the text
    bool focused_ = false;
    std::int32_t caret_ = 0;
    std::int32_t anchor_ = 0;
    bool selectOnRelease_ = false; ///< this press gave the field the keyboard
    std::uint8_t blinkAlpha_ = 255;
    std::shared_ptr<CTween> blink_;
    std::shared_ptr<PopupList> contextMenu_;
    bool caretMoved_ = false; ///< the window does not know of it yet
    float caretX_ = 0;        ///< see TextMarks; from the left upper corner of the text's box
    float caretY_ = 0;
    bool cancelComposition_ = false;
};

} // namespace nui
