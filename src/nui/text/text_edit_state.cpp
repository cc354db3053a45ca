#include "nui/text/text_edit_state.h"

#include <algorithm>

namespace nui {

namespace {

constexpr char32_t FirstNonAscii = 128;

bool isDigit(char32_t character)
{
    return character >= U'0' && character <= U'9';
}

/// Input methods of Eastern languages type numbers in wide forms.
char32_t narrow(char32_t character)
{
    constexpr char32_t WideZero = 0xFF10;
    constexpr char32_t WideNine = 0xFF19;
    if (character >= WideZero && character <= WideNine)
        return character - WideZero + U'0';
    switch (character) {
    case 0xFF0E: // full stop
        return U'.';
    case 0xFF0D: // hyphen-minus
    case 0x30FC: // the long vowel mark, which lies on the key of the minus
        return U'-';
    case 0xFF0C: // comma
        return U',';
    default:
        return character;
    }
}

} // namespace

std::u32string_view TextEditState::selection() const
{
    const auto [first, last] = std::minmax({caret, anchor});
    return std::u32string_view(text).substr(static_cast<std::size_t>(first),
                                            static_cast<std::size_t>(last - first));
}

std::u32string TextEditState::accepted(std::u32string_view inserted) const
{
    std::u32string taken(inserted);
    std::transform(taken.begin(), taken.end(), taken.begin(), narrow);
    if (characterType == CharacterType::Ascii)
        std::erase_if(taken, [](char32_t character) { return character >= FirstNonAscii; });
    return taken;
}

std::int32_t TextEditState::insert(std::u32string_view inserted)
{
    if (readOnly)
        return 0;
    // All or nothing, and before wide digits become digits: a number of another form is refused.
    if (inputType == InputType::Number && !std::all_of(inserted.begin(), inserted.end(), isDigit))
        return 0;
    std::u32string taken = accepted(inserted);
    deleteSelection();
    if (maxLength != 0) {
        const std::size_t room = maxLength > text.size() ? maxLength - text.size() : 0;
        taken.resize(std::min(taken.size(), room));
    }
    if (taken.empty())
        return 0;
    text.insert(static_cast<std::size_t>(caret), taken);
    changed = true;
    const auto count = static_cast<std::int32_t>(taken.size());
    place(caret + count, caret + count);
    return count;
}

bool TextEditState::deleteSelection()
{
    if (!hasSelection() || text.empty() || readOnly)
        return false;
    const auto [first, last] = std::minmax({caret, anchor});
    remove(first, last - first);
    return true;
}

bool TextEditState::deleteBackward()
{
    if (readOnly)
        return false;
    if (deleteSelection())
        return true;
    if (caret == 0)
        return false;
    remove(caret - 1, 1);
    return true;
}

bool TextEditState::deleteForward()
{
    if (readOnly)
        return false;
    if (deleteSelection())
        return true;
    if (caret >= length())
        return false;
    remove(caret, 1);
    return true;
}

void TextEditState::moveTo(std::int32_t newPlace, bool extend)
{
    const std::int32_t inside = std::clamp(newPlace, 0, length());
    place(extend ? anchor : inside, inside);
}

void TextEditState::selectAll()
{
    place(0, length());
}

void TextEditState::remove(std::int32_t from, std::int32_t count)
{
    text.erase(static_cast<std::size_t>(from), static_cast<std::size_t>(count));
    changed = true;
    place(from, from);
}

void TextEditState::place(std::int32_t newAnchor, std::int32_t newCaret)
{
    changedCaret = changedCaret || newAnchor != anchor || newCaret != caret;
    anchor = newAnchor;
    caret = newCaret;
}

} // namespace nui
