#include "nui/text/text_edit_state.h"

#include "misc/text.h"
#include "nui/engine/engine.h"
#include "support/nui/edit_oracle.h"
#include "support/nui/fixed_font.h"
#include "support/nui/layout.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace {

/// "one[two|": two is selected, and the caret at its end.
std::string shown(const nui::TextEditState& state)
{
    std::u32string text = state.text;
    text.insert(static_cast<std::size_t>(state.caret), 1, U'|');
    if (state.hasSelection())
        text.insert(static_cast<std::size_t>(state.anchor), 1, U'[');
    return nrd::misc::to_utf8(text);
}

TEST(text_edit_state_test, an_insertion_goes_through_the_rules_of_its_field_in_their_order)
{
    using nui::CharacterType;
    using nui::InputType;
    constexpr auto Any = CharacterType::AsciiAndUnicode;
    struct {
        InputType input;
        CharacterType characters;
        std::uint32_t maxLength;
        const char32_t* inserted;
        const char* after; // of "abcde" with "bc" selected
    } const cases[] = {
        {InputType::Normal, Any, 0, U"x", "ax|de"},
        {InputType::Normal, Any, 0, U"", "a|de"},
        {InputType::Normal, Any, 0, U"\uFF10\uFF19\uFF0E\uFF0D\u30FC\uFF0C", "a09.--,|de"},
        {InputType::Normal, CharacterType::Unicode, 0, U"\u00E9", "a\xC3\xA9|de"},
        {InputType::Normal, CharacterType::Ascii, 0, U"\u00E9x\uFF11\u5207", "ax1|de"},
        {InputType::Normal, CharacterType::Ascii, 0, U"\u00E9", "a|de"},
        // The selection goes before the room is counted.
        {InputType::Normal, Any, 5, U"xyz", "axy|de"},
        {InputType::Normal, Any, 3, U"xyz", "a|de"},
        {InputType::Number, Any, 0, U"12", "a12|de"},
        // All or nothing, and before anything else.
        {InputType::Number, Any, 0, U"12a", "a[bc|de"},
        {InputType::Number, Any, 0, U"-1", "a[bc|de"},
        {InputType::Number, Any, 0, U"\uFF11", "a[bc|de"},
    };
    for (const auto& wanted : cases) {
        nui::TextEditState state;
        state.text = U"abcde";
        state.anchor = 1;
        state.caret = 3;
        state.inputType = wanted.input;
        state.characterType = wanted.characters;
        state.maxLength = wanted.maxLength;
        state.insert(wanted.inserted);
        EXPECT_EQ(shown(state), wanted.after) << nrd::misc::to_utf8(wanted.inserted);
    }
}

TEST(text_edit_state_test, random_edits_of_a_field_agree_with_a_plain_model)
{
    const nui::test::MeasuringEngine engine;
    nui::engine().fonts.defaultEditFont = std::make_unique<nui::test::FixedFont>();
    for (std::uint32_t seed = 1; seed <= 400; ++seed) {
        std::mt19937 random(seed);
        std::vector<unsigned char> bytes(400);
        for (unsigned char& byte : bytes)
            byte = static_cast<unsigned char>(random());
        EXPECT_EQ(nui::test::firstDifferenceInEdits(bytes.data(), bytes.size()), "")
            << "seed " << seed;
    }
}

} // namespace
