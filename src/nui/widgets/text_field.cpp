#include "nui/widgets/text_field.h"

#include "misc/text.h"
#include "misc/utf8.h"
#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/reader/nui_reader.h"
#include "nui/text/clipboard.h"

#include <SDL_clipboard.h>

#include <algorithm>
#include <array>

namespace nui {

namespace {

constexpr std::array<const char*, 4> CharacterTypeNames = {"AsciiAndUnicode", "Ascii", "Unicode",
                                                           nullptr};
// By the value of the input type, so most places have no name.
constexpr std::array<const char*, 10> InputTypeNames = {
    "Normal", "Password", "Email", "", "Url", "", "", "", "Number", nullptr};

std::int32_t lengthOf(const std::string& text)
{
    return static_cast<std::int32_t>(nrd::misc::count_code_points(text));
}

/// Line ends as fields have them: a line feed alone.
std::string withLineFeeds(const std::string& text)
{
    std::string lines;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\r')
            lines += text[i];
        else if (i + 1 == text.size() || text[i + 1] != '\n')
            lines += '\n';
    }
    return lines;
}

} // namespace

TextField::TextField()
{
    subscribe(*this, touch::Press, onPress, nullptr);
    subscribe(*this, touch::Release, onRelease, nullptr);
    subscribe(*this, touch::Move, onDrag, nullptr);
    subscribe(*this, keyboard::FocusGained, onFocusGained, nullptr);
    subscribe(*this, keyboard::FocusLost, onFocusLost, nullptr);
    subscribe(*this, keyboard::Down, onKey, nullptr);
    subscribe(*this, text::Committed, onTextInput, nullptr);
    subscribe(*this, text::Composing, onComposition, nullptr);
}

TextField::TextField(const TextField& other)
    : Cloneable<TextField, TextButton>(other), rules_(other.rules_)
{
}

TextField& TextField::operator=(const TextField& other)
{
    if (this == &other)
        return *this;
    TextButton::operator=(other);
    rules_ = other.rules_;
    caret_ = std::min(caret_, lengthOf(getText()));
    anchor_ = caret_;
    return *this;
}

TextField::~TextField()
{
    if (Engine::exists())
        stopBlink();
}

bool TextField::read(NuiReader& reader)
{
    readLabelKeys(reader); // of a button's keys only those below
    reader.readEdges(padding, "padding");
    if (reader.readString(rules_.hintKey, "hint", true)) {
        // An empty one takes a template's hint away.
        rules_.hintText.clear();
        reloadHint();
    }
    reader.readColor(rules_.hintColor, "hintColor", "hintColorAlpha");
    reader.readColor(rules_.caretColor, "caretColor", "caretAlpha");
    auto word = static_cast<std::uint32_t>(rules_.inputType);
    reader.readEnum(word, "inputType", InputTypeNames.data());
    rules_.inputType = static_cast<InputType>(word);
    word = static_cast<std::uint32_t>(rules_.characterType);
    reader.readEnum(word, "characterType", CharacterTypeNames.data());
    rules_.characterType = static_cast<CharacterType>(word);
    reader.readBool(rules_.multiline, "multiline");
    reader.readUnsigned(rules_.maxLength, "maxLength");
    reader.readUnsigned(rules_.version, "class_version");
    reader.readBool(wordWrap, "wordWrap");
    reader.readInt(maxLines, "maxLines");
    reader.readBool(rules_.readOnly, "readOnly");
    return true;
}

void TextField::reloadText()
{
    TextLabel::reloadText();
    reloadHint();
}

void TextField::reloadHint()
{
    const std::string& key = rules_.hintKey;
    if (!key.empty())
        rules_.hintText = engine().lang ? engine().lang->getString(key) : key;
}

void TextField::setText(const std::string& newText)
{
    TextButton::setText(newText);
    // Also for an equal text.
    caret_ = std::min(caret_, lengthOf(getText()));
    anchor_ = caret_;
    caretMoved_ = true;
    followCaret();
}

Font* TextField::font() const
{
    return engine().fonts.defaultEditFont.get();
}

std::string_view TextField::shownText() const
{
    // Never the password itself.
    return isPassword() ? std::string_view(displayText()) : TextButton::shownText();
}

std::string_view TextField::measuredText() const
{
    return getText().empty() ? std::string_view(rules_.hintText) : shownText();
}

void TextField::prepareText()
{
    if (!isPassword()) {
        setDisplayText("");
        return;
    }
    // One for each byte, which tells even less of what was typed.
    setDisplayText(std::string(getText().size(), '*'));
    maxLines = 0;
}

TextEditState TextField::editState() const
{
    TextEditState state;
    state.text = nrd::misc::to_text32(getText());
    state.caret = std::min(caret_, state.length());
    state.anchor = std::min(anchor_, state.length());
    state.readOnly = rules_.readOnly;
    state.characterType = rules_.characterType;
    state.inputType = rules_.inputType;
    state.maxLength = rules_.maxLength;
    return state;
}

void TextField::finishEdit(const TextEditState& state)
{
    // A listener may let the field go.
    const WidgetPtr held = weak_from_this().lock();
    if (state.changed)
        storeText(nrd::misc::to_utf8(state.text));
    caret_ = state.caret;
    anchor_ = state.anchor;
    caretMoved_ = true;
    composing_ = false;
    measure();
    followCaret();
    if (parent != nullptr)
        parent->layout(0);
    raise(text::Changed);
    restartBlink();
}

void TextField::moveTo(std::int32_t newCaret, std::int32_t newAnchor)
{
    caret_ = newCaret;
    anchor_ = newAnchor;
    caretMoved_ = true;
    restartBlink();
}

void TextField::finishMove(std::int32_t newCaret, std::int32_t newAnchor)
{
    moveTo(newCaret, newAnchor);
    followCaret();
}

void TextField::raise(EventType type)
{
    TextEvent event(type);
    bubble(*this, event);
}

std::int32_t TextField::insertText(const std::string& inserted)
{
    TextEditState state = editState();
    const std::int32_t count = state.insert(nrd::misc::to_text32(inserted));
    finishEdit(state);
    return count;
}

void TextField::acceptText(const TextEvent& event)
{
    insertText(event.text);
    composing_ = false;
}

void TextField::setCaret(std::int32_t index)
{
    TextEditState state = editState();
    state.moveTo(index, false);
    finishMove(state.caret, state.anchor);
}

void TextField::selectAll()
{
    selectOnRelease_ = false;
    composing_ = false;
    finishMove(lengthOf(getText()), 0);
}

bool TextField::deleteSelection()
{
    TextEditState state = editState();
    const bool deleted = state.deleteSelection();
    if (deleted)
        finishEdit(state);
    return deleted;
}

bool TextField::copy() const
{
    const TextEditState state = editState();
    if (!state.hasSelection() || isPassword())
        return false;
    std::u32string copied(state.selection());
    // It would end there for the clipboard.
    std::ranges::replace(copied, U'\0', U' ');
    SDL_SetClipboardText(nrd::misc::to_utf8(copied).c_str());
    return true;
}

void TextField::cut()
{
    if (!rules_.readOnly && copy())
        deleteSelection();
}

void TextField::paste()
{
    // A listener may let the field go.
    const WidgetPtr held = weak_from_this().lock();
    raise(text::Pasting);
    if (rules_.readOnly)
        return;
    std::string pasted = clipboardText();
    if (pasted.empty())
        return;
    if (rules_.multiline)
        pasted = withLineFeeds(pasted);
    else
        pasted.resize(std::min(pasted.find_first_of("\r\n"), pasted.size()));
    insertText(pasted);
}

} // namespace nui
