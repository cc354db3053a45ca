#pragma once

#include "misc/text.h"
#include "nui/engine/engine.h"
#include "nui/widgets/screen.h"
#include "nui/widgets/text_field.h"
#include "support/nui/event_log.h"
#include "support/nui/fixed_font.h"
#include "support/nui/running_toolkit.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <sstream>
#include <string>

namespace nui::test {

/// A field in a window, worked with pointer and keys. Texts are written in FixedFont.
class TextFieldTest : public testing::Test {
protected:
    TextFieldTest()
    {
        engine().fonts.defaultEditFont = std::make_unique<FixedFont>();
        font = dynamic_cast<FixedFont*>(engine().fonts.defaultEditFont.get());
    }

    /// A window with the field at its left upper corner, 100 by 40 unless the keys say otherwise,
    /// and a second one below it.
    TextField& open(const std::string& keys, const std::string& className = "TextField")
    {
        const auto unlessSaid = [&keys](const std::string& key, const char* value) {
            return keys.find("'" + key + "'") == std::string::npos ? ", '" + key + "': " + value
                                                                   : std::string();
        };
        screen = toolkit.open(
            "{'widgets': [{'class': 'Screen', 'id': 'screen', 'name': 'screen',"
            " 'windowWidth': 300, 'windowHeight': 120, 'form': true, 'children': ["
            "{'class': '" +
            className + "', 'name': 'f', 'verticalTextAlignment': 'Top', 'color': '#000000'" +
            unlessSaid("width", "100") + unlessSaid("height", "40") + keys +
            "}, {'class': 'TextField', 'name': 'other', 'text': 'else', 'height': 20},"
            "{'class': 'TextButton', 'name': 'button', 'text': 'go', 'default': true}]}]}");
        field = dynamic_cast<TextField*>(screen->findByName("f"));
        log.listen(*screen);
        return *field;
    }

    TextField& openFocused(const std::string& keys, const std::string& className = "TextField")
    {
        open(keys, className);
        focus();
        return *field;
    }

    void focus()
    {
        engine().setFocus(field->shared_from_this());
        toolkit.frame();
    }

    /// "one[two|]": two is selected, and the caret at its end.
    [[nodiscard]] std::string shown() const
    {
        std::u32string text = nrd::misc::to_text32(field->getText());
        const auto insert = [&text](std::int32_t place, char32_t mark) {
            text.insert(static_cast<std::size_t>(place), 1, mark);
        };
        const bool selects = field->caret() != field->anchor();
        const bool caretLast = field->caret() > field->anchor();
        if (selects)
            insert(caretLast ? field->caret() : field->anchor(), U']');
        insert(field->caret(), U'|');
        if (selects)
            insert(caretLast ? field->anchor() : field->caret(), U'[');
        return nrd::misc::to_utf8(text);
    }

    std::string after(std::initializer_list<Key> keys)
    {
        toolkit.keys(keys);
        return shown();
    }

    std::string afterTyping(const std::string& text)
    {
        toolkit.type(text);
        return shown();
    }

    /// How often a type of event has reached the window since the last call.
    int heard(const std::string& tag)
    {
        int count = 0;
        std::istringstream lines(log.take());
        for (std::string line; std::getline(lines, line);)
            count += line.starts_with(tag) ? 1 : 0;
        return count;
    }

    void compose(const std::string& text, std::int32_t length = 0)
    {
        SDL_Event event = {};
        event.edit.type = SDL_TEXTEDITING;
        event.edit.windowID = screen->windowId();
        event.edit.length = length;
        text.copy(event.edit.text, sizeof event.edit.text - 1);
        SDL_PushEvent(&event);
        toolkit.turn();
    }

    std::string drawn()
    {
        (void)font->takeDrawn();
        toolkit.frame();
        const std::string all = font->takeDrawn();
        return all.substr(0, all.find('\n'));
    }

    EventLog log; // hears of what goes until the toolkit has ended
    RunningToolkit toolkit;
    FixedFont* font = nullptr;
    std::shared_ptr<Screen> screen;
    TextField* field = nullptr;
    bool unused = false; ///< the field has left the last key to others
};

} // namespace nui::test
