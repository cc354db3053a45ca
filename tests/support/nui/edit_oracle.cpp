#include "support/nui/edit_oracle.h"

#include "nui/events/dispatch.h"
#include "nui/widgets/number_text_field.h"
#include "nui/widgets/screen.h"

#include <SDL_keycode.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <vector>

namespace nui::test {

namespace {

/// A character of the model is its UTF-8.
using Characters = std::vector<std::string>;

struct Piece {
    std::string utf8;
    Characters characters; ///< as a field has them that takes everything
    bool digits;
};

const std::array<Piece, 10>& pieces()
{
    static const std::array<Piece, 10> all = {{
        {"", {}, true},
        {"7", {"7"}, true},
        {"12", {"1", "2"}, true},
        {"a", {"a"}, false},
        {"b c", {"b", " ", "c"}, false},
        {"\xC3\xA9t", {"\xC3\xA9", "t"}, false},
        {"\xE5\x88\x87\xE6\x96\xAD", {"\xE5\x88\x87", "\xE6\x96\xAD"}, false},
        // Wide digits, stop, minus, vowel mark and comma.
        {"\xEF\xBC\x90\xEF\xBC\x99\xEF\xBC\x8E\xEF\xBC\x8D\xE3\x83\xBC\xEF\xBC\x8C",
         {"0", "9", ".", "-", "-", ","},
         false},
        {"\xF0\x9F\x98\x80!", {"\xF0\x9F\x98\x80", "!"}, false},
        // Bytes that are no text.
        {"x\xFF\xC3", {"x", "\xEF\xBF\xBD", "\xEF\xBF\xBD"}, false},
    }};
    return all;
}

struct Rules {
    bool number = false;
    bool password = false;
    bool ascii = false;
    bool multiline = false;
    bool readOnly = false;
    bool scrolls = false;
    bool keepsComposition = false;
    std::size_t maxLength = 0;
};

class Model {
public:
    explicit Model(const Rules& rules) : rules_(rules) {}

    std::size_t insert(const Piece& piece)
    {
        composing_ = false;
        if (rules_.readOnly || (rules_.number && !piece.digits))
            return 0;
        removeSelection();
        std::size_t count = 0;
        for (const std::string& character : piece.characters) {
            if (rules_.ascii && character.size() > 1)
                continue;
            if (rules_.maxLength != 0 && text.size() >= rules_.maxLength)
                break;
            text.insert(text.begin() + caret, character);
            broken_ = false;
            anchor = ++caret;
            ++count;
        }
        return count;
    }

    void accept(const Piece& piece)
    {
        if (!(rules_.keepsComposition && composing_))
            insert(piece);
        composing_ = false;
    }

    void compose(const Piece& piece)
    {
        if (piece.utf8.empty()) {
            if (composing_ && cancel_)
                removeSelection();
            composing_ = false;
            return;
        }
        caret -= static_cast<std::ptrdiff_t>(insert(piece));
        composing_ = true;
    }

    bool removeSelection()
    {
        if (rules_.readOnly || caret == anchor)
            return false;
        const auto [first, last] = std::minmax(caret, anchor);
        text.erase(text.begin() + first, text.begin() + last);
        broken_ = false;
        anchor = caret = std::min(first, last);
        composing_ = false;
        return true;
    }

    void setText(const Piece& piece)
    {
        text = piece.characters;
        // Those bytes stay as they are until an edit.
        broken_ = &piece == &pieces().back();
        if (piece.utf8.find("\xEF\xBC") != std::string::npos)
            text = {"\xEF\xBC\x90", "\xEF\xBC\x99", "\xEF\xBC\x8E",
                    "\xEF\xBC\x8D", "\xE3\x83\xBC", "\xEF\xBC\x8C"};
        anchor = caret = std::min(caret, end());
    }

    void move(std::ptrdiff_t to, bool extend)
    {
        caret = std::clamp<std::ptrdiff_t>(to, 0, end());
        anchor = extend ? anchor : caret;
    }

    void selectAll()
    {
        anchor = 0;
        caret = end();
        composing_ = selectOnRelease_ = false;
    }

    void key(std::int32_t code, bool shift)
    {
        if (composing_) {
            cancel_ = code == SDLK_BACKSPACE || code == SDLK_ESCAPE;
            return;
        }
        if (code == SDLK_LEFT)
            move(caret - 1, shift);
        else if (code == SDLK_RIGHT)
            move(caret + 1, shift);
        else if (code == SDLK_HOME)
            move(0, shift);
        else if (code == SDLK_END)
            move(end(), shift);
        else if (code == SDLK_BACKSPACE && !removeSelection() && !rules_.readOnly && caret > 0) {
            text.erase(text.begin() + --caret);
            anchor = caret;
            broken_ = false;
        } else if (code == SDLK_DELETE && !removeSelection() && !rules_.readOnly && caret < end()) {
            text.erase(text.begin() + caret);
            broken_ = false;
        } else if (code == SDLK_RETURN && rules_.multiline)
            insert({"\n", {"\n"}, false});
    }

    void press(float x)
    {
        if (!text.empty()) {
            const auto feed = std::find(text.begin(), text.end(), "\n") - text.begin();
            const auto column = static_cast<std::ptrdiff_t>(std::round(x / 10));
            std::ptrdiff_t stars = 0;
            if (!rules_.password) {
                move(std::min(column, feed), false);
            } else {
                std::ptrdiff_t character = 0;
                while (character < end() && stars < column)
                    stars += bytesOf(text[static_cast<std::size_t>(character++)]);
                move(character, false);
            }
        }
        selectOnRelease_ = true; // it never has the keyboard
    }

    void release()
    {
        if (selectOnRelease_)
            selectAll();
    }

    [[nodiscard]] std::ptrdiff_t end() const { return static_cast<std::ptrdiff_t>(text.size()); }

    Characters text;
    std::ptrdiff_t caret = 0;
    std::ptrdiff_t anchor = 0;

private:
    [[nodiscard]] std::ptrdiff_t bytesOf(const std::string& character) const
    {
        const bool isOneByte = broken_ && character == pieces().back().characters.back();
        return isOneByte ? 1 : static_cast<std::ptrdiff_t>(character.size());
    }

    Rules rules_;
    bool broken_ = false; ///< the text was set to bytes that are none
    bool composing_ = false;
    bool cancel_ = false;
    bool selectOnRelease_ = false;
};

/// The same edits on a field and on the model.
class Comparison {
public:
    explicit Comparison(const Rules& rules) : rules_(rules), model_(rules)
    {
        if (rules.keepsComposition)
            field_ = std::make_shared<NumberTextField>();
        else
            field_ = std::make_shared<TextField>();
        field_->setInputType(rules.number     ? InputType::Number
                             : rules.password ? InputType::Password
                                              : InputType::Normal);
        field_->setCharacterType(rules.ascii ? CharacterType::Ascii
                                             : CharacterType::AsciiAndUnicode);
        field_->setMultiline(rules.multiline);
        field_->setReadOnly(rules.readOnly);
        field_->setMaxLength(static_cast<std::uint32_t>(rules.maxLength));
        field_->setVersion(rules.scrolls ? 2 : 1);
        // No line is too long for it.
        field_->widthMode = field_->heightMode = Px;
        field_->width = field_->widthValue = 100000;
        field_->height = field_->heightValue = 1000;
        field_->verticalTextAlignment = VerticalTextAlignment::Top;
        screen_->add(field_);
        field_->layout(0);
    }

    ~Comparison() { screen_->removeAll(); }
    Comparison(const Comparison&) = delete;
    Comparison& operator=(const Comparison&) = delete;

    void step(unsigned operation, unsigned detail)
    {
        const Piece& piece = pieces()[detail % pieces().size()];
        switch (operation % 10) {
        case 0:
            field_->insertText(piece.utf8);
            model_.insert(piece);
            break;
        case 1:
        case 2:
            key(detail);
            break;
        case 3:
            tell(text::Committed, piece);
            model_.accept(piece);
            break;
        case 4:
            tell(text::Composing, piece);
            model_.compose(piece);
            break;
        case 5:
            field_->setText(piece.utf8);
            model_.setText(piece);
            break;
        case 6:
            field_->setCaret(static_cast<std::int32_t>(detail % 32) - 4);
            model_.move(static_cast<std::ptrdiff_t>(detail % 32) - 4, false);
            break;
        case 7:
            field_->selectAll();
            model_.selectAll();
            break;
        case 8:
            (void)field_->deleteSelection();
            model_.removeSelection();
            break;
        default:
            if (!rules_.scrolls)
                click(detail);
            break;
        }
    }

    [[nodiscard]] std::string difference() const
    {
        std::string expected;
        for (const std::string& character : model_.text)
            expected += character;
        const Piece& broken = pieces().back();
        std::string text = field_->getText();
        // What no edit has touched keeps its bytes.
        if (text == broken.utf8)
            text = broken.characters[0] + broken.characters[1] + broken.characters[2];
        if (text == expected && field_->caret() == model_.caret &&
            field_->anchor() == model_.anchor)
            return "";
        return "the field has '" + text + "' " + std::to_string(field_->anchor()) + " to " +
               std::to_string(field_->caret()) + ", the model '" + expected + "' " +
               std::to_string(model_.anchor) + " to " + std::to_string(model_.caret);
    }

private:
    void key(unsigned detail)
    {
        constexpr std::array Keys = {SDLK_LEFT, SDLK_RIGHT,     SDLK_HOME,   SDLK_END,
                                     SDLK_LEFT, SDLK_BACKSPACE, SDLK_DELETE, SDLK_RETURN};
        const bool shift = (detail & 8U) != 0;
        KeyboardEvent event(keyboard::Down);
        event.key = Keys[detail % Keys.size()];
        event.modifiers = shift ? KMOD_RSHIFT : KMOD_NONE;
        dispatch(*field_, event, Phase::AtTarget);
        model_.key(event.key, shift);
    }

    void tell(EventType type, const Piece& piece)
    {
        TextEvent event(type);
        event.text = piece.utf8;
        dispatch(*field_, event, Phase::AtTarget);
    }

    void click(unsigned detail)
    {
        const bool down = (detail & 1U) == 0;
        TouchEvent event(down ? touch::Press : touch::Release);
        event.buttons = pointer_button::Left;
        event.x = static_cast<std::int32_t>(detail);
        dispatch(*field_, event, Phase::AtTarget);
        if (down)
            model_.press(static_cast<float>(detail));
        else
            model_.release();
    }

    Rules rules_;
    Model model_;
    std::shared_ptr<Screen> screen_ = std::make_shared<Screen>();
    std::shared_ptr<TextField> field_;
};

Rules rulesOf(unsigned char kinds, unsigned char length)
{
    const unsigned type = kinds % 4;
    Rules rules;
    rules.number = type == 1;
    rules.password = type == 2;
    rules.ascii = type == 3;
    rules.multiline = (kinds & 4U) != 0;
    rules.scrolls = (kinds & 8U) != 0;
    rules.keepsComposition = (kinds & 16U) != 0;
    rules.readOnly = (kinds & 0xE0U) == 0xE0U;
    rules.maxLength = length % 8;
    return rules;
}

} // namespace

std::string firstDifferenceInEdits(const unsigned char* bytes, std::size_t count)
{
    if (count < 2)
        return "";
    Comparison both(rulesOf(bytes[0], bytes[1]));
    for (std::size_t i = 2; i + 1 < count; i += 2) {
        both.step(bytes[i], bytes[i + 1]);
        const std::string difference = both.difference();
        if (!difference.empty())
            return "after edit " + std::to_string(i / 2) + " (" + std::to_string(bytes[i] % 10) +
                   ", " + std::to_string(bytes[i + 1]) + ") " + difference;
    }
    return "";
}

} // namespace nui::test
