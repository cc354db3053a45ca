#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace nui {

/// Which characters a field takes. Unicode says no more than AsciiAndUnicode.
enum class CharacterType : std::uint32_t { AsciiAndUnicode = 0, Ascii = 1, Unicode = 2 };

/// What a field is for.
enum class InputType : std::uint32_t { Normal = 0, Password = 1, Email = 2, Url = 4, Number = 8 };

/// A text while one edit is made on it, and the rules of its field. Places count characters (code
/// points) and lie in the text. `anchor` is the other end of the selection, equal to the caret
/// when nothing is selected.
struct TextEditState {
    std::u32string text;
    std::int32_t caret = 0;
    std::int32_t anchor = 0;
    bool readOnly = false;
    CharacterType characterType = CharacterType::AsciiAndUnicode;
    InputType inputType = InputType::Normal;
    std::uint32_t maxLength = 0; ///< 0 is no limit
    bool changed = false;        ///< the text has become another
    bool changedCaret = false;   ///< the caret or the anchor has moved

    [[nodiscard]] std::int32_t length() const { return static_cast<std::int32_t>(text.size()); }
    [[nodiscard]] bool hasSelection() const { return caret != anchor; }
    [[nodiscard]] std::u32string_view selection() const;

    /// Puts the text in place of the selection, after it went through the field's rules: wide
    /// digits become ASCII ones, what the field does not take is dropped, and what has no room is
    /// cut. Answers how many characters have come in.
    std::int32_t insert(std::u32string_view inserted);
    /// These answer whether something was removed.
    bool deleteSelection();
    /// The selection, or else the character before the caret.
    bool deleteBackward();
    /// The selection, or else the character behind the caret.
    bool deleteForward();
    /// Places outside the text are its ends. `extend` leaves the anchor where it is.
    void moveTo(std::int32_t place, bool extend);
    void selectAll();

private:
    [[nodiscard]] std::u32string accepted(std::u32string_view inserted) const;
    void remove(std::int32_t from, std::int32_t count);
    void place(std::int32_t newAnchor, std::int32_t newCaret);
};

} // namespace nui
