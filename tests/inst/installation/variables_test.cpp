#include "inst/installation/variables.h"

#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <stdexcept>

namespace nrd::installation {
namespace {

using variables = std::map<text32, text32>;

/// A value that leads back to itself never ends, so the look-up ends it.
class endless : public std::exception {};

std::string outcome(const text32& text, const variables& known)
{
    const auto lookup = [&, budget = 4](const text32& name, const text32& fallback) mutable {
        if (budget-- == 0) {
            throw endless();
        }
        const auto found = known.find(name);
        return found == known.end() ? fallback : found->second;
    };
    try {
        return misc::to_utf8(substitute_vars(text, lookup));
    } catch (const std::regex_error&) {
        return "(no regular expression)";
    } catch (const endless&) {
        return "(endless)";
    }
}

TEST(variables, placeholders_are_replaced_by_this_table)
{
    const variables known = {{U"A", U"C:/x"},     {U"ONE", U"1"},      {U"NESTED", U"<${ONE}>"},
                             {U"EMPTY", U""},     {U"BRACED", U"{X}"}, {U"X", U"2"},
                             {U"CLOSING", U"c}"}, {U"GROUP", U"a$5b"}, {U"DOLLARS", U"$$"},
                             {U"DOLLAR", U"$"},   {U"WHOLE", U"$&"},   {U"SELF", U"${SELF}"},
                             {U"A.C", U"dot"},    {U"A+B", U"plus"},   {U"\u00dc", U"\U0001f600"}};
    const std::vector<std::pair<text32, std::string>> cases = {
        {U"", ""},
        {U"${A}\\${UNKNOWN}", "C:/x\\${UNKNOWN}"},
        {U"${NESTED}${NESTED}", "<1><1>"},
        {U"${one}", "${one}"},
        {U"${\u00dc}", "\xf0\x9f\x98\x80"},
        {U"a}${A}", "a}${A}"},         // a "}" in front ends the search
        {U"${CLOSING}${A}", "c}${A}"}, // also one that a value brings
        {U"${}${A}", "${}${A}"},       // an empty name ends it too
        {U"${A", "${A"},
        {U"$ {A}", "$ {A}"},
        {U"$${EMPTY}{X}", "2"}, // a "$" in front can meet what follows a value
        {U"$${BRACED}", "2"},   // or what a value begins with
        {U"${DOLLAR}{X}", "2"},
        {U"${GROUP}", "ab"}, // values are replacement formats
        {U"${DOLLARS}", "$"},
        {U"${WHOLE}", "(endless)"},
        {U"${SELF}", "(endless)"},
        {U"${A.C}${ABC}", "dotdot"}, // names are expressions
        {U"${A+B}", "(endless)"},    // one that does not match itself
        {U"${(}", "(no regular expression)"},
        {U"~~dollar~~{X}", "${X}"}, // typed in protected form: not expanded
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(outcome(text, known), expected) << misc::to_utf8(text);
    }
}

/// What is taken as it is written leaves also a placeholder behind it alone.
TEST(variables, values_that_change_when_they_are_inserted_are_known)
{
    for (const char32_t* value : {U"C:\\a", U"C:\\$a{b", U"$", U"${W}", U"a}b", U"$&", U"$$", U"$1",
                                  U"$`", U"~~dollar~~", U"~~ocb~~"}) {
        const std::string text = misc::to_utf8(text32(value));
        const bool unchanged = outcome(U"${V}|${W}", {{U"V", value}, {U"W", U"1"}}) == text + "|1";
        EXPECT_EQ(is_taken_as_written(value), unchanged) << text;
    }
}

TEST(variables, separators_are_normalised_as_by_three_passes)
{
    EXPECT_EQ(normalise_separators(U"C:/a//b\\c"), U"C:\\a\\b\\c");
    EXPECT_EQ(normalise_separators(U"\\\\server\\share"), U"\\server\\share");
    EXPECT_EQ(normalise_separators(U"a///b"), U"a\\\\b");
    EXPECT_EQ(normalise_separators(U"a/////b"), U"a\\\\\\b");
    EXPECT_EQ(normalise_separators(U"\\/\\/x\\"), U"\\\\x\\");
}

} // namespace
} // namespace nrd::installation
