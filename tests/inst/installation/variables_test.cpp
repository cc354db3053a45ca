#include "inst/installation/variables.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <regex>
#include <stdexcept>

namespace nrd::installation {
namespace {

using variables = std::map<text32, text32>;

/// A value that leads back to itself never ends, so the look-up ends it.
class endless : public std::exception {};

variable_lookup lookup_in(const variables& known, int budget)
{
    return [&known, budget](const text32& name, const text32& fallback) mutable {
        if (budget-- == 0) {
            throw endless();
        }
        const auto found = known.find(name);
        return found == known.end() ? fallback : found->second;
    };
}

template <class Substitute>
std::string outcome(Substitute substitute, const text32& text, const variables& known)
{
    try {
        return misc::to_utf8(substitute(text, lookup_in(known, 4)));
    } catch (const std::regex_error&) {
        return "(no regular expression)";
    } catch (const endless&) {
        return "(endless)";
    }
}

// The rule of substitution in its plainest form: one pass over the text for the name, and one
// regular expression for each replacement. Wide characters hold UTF-16 units.
namespace plain {

std::wstring units(std::u32string_view text)
{
    const std::u16string result = misc::to_utf16(text);
    return {result.begin(), result.end()};
}

text32 text_of(const std::wstring& units)
{
    std::u16string result;
    std::transform(units.begin(), units.end(), std::back_inserter(result),
                   [](wchar_t unit) { return static_cast<char16_t>(unit); });
    return misc::to_text32(std::u16string_view(result));
}

text32 replace(const text32& text, const text32& expression, const text32& format)
{
    return text_of(std::regex_replace(units(text), std::wregex(units(expression)), units(format)));
}

text32 first_name(const text32& text)
{
    char32_t previous = 0;
    text32 name;
    bool inside = false;
    for (const char32_t c : text) {
        if (c == U'}') {
            return name;
        }
        if (inside) {
            name += c;
        }
        if (previous == U'$' && c == U'{') {
            inside = true;
        }
        previous = c;
    }
    return {};
}

text32 protect(const text32& text)
{
    return replace(replace(replace(text, U"\\$", U"~~dollar~~"), U"\\{", U"~~ocb~~"), U"\\}",
                   U"~~ccb~~");
}

text32 unprotect(const text32& text)
{
    return replace(replace(replace(text, U"~~dollar~~", U"$"), U"~~ocb~~", U"{"), U"~~ccb~~", U"}");
}

text32 substitute(text32 text, const variable_lookup& lookup)
{
    for (text32 name = first_name(text); !name.empty(); name = first_name(text)) {
        const text32 value = lookup(name, protect(U"${" + name + U"}"));
        text = replace(text, U"\\$\\{" + name + U"\\}", value);
    }
    return unprotect(text);
}

text32 normalise(const text32& text)
{
    return replace(replace(replace(text, U"\\\\", U"/"), U"//", U"/"), U"/", U"\\");
}

} // namespace plain

class random_texts {
public:
    text32 next(std::size_t longest)
    {
        static const std::array<text32, 21> pieces = {
            U"$", U"{",    U"}",    U"A",        U"B",          U"\\",     U"/",
            U".", U"+",    U"~",    U"${",       U"}",          U"A",      U"$&",
            U"1", U"${A}", U"${B}", U"${A|1|B}", U"~~dollar~~", U"\u00e4", U"\U0001f600"};
        text32 text;
        for (std::size_t count = draw(longest + 1); count > 0; --count) {
            text += pieces[draw(pieces.size())];
        }
        return text;
    }

private:
    std::size_t draw(std::size_t count)
    {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(engine_);
    }

    std::mt19937 engine_{20};
};

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
        EXPECT_EQ(outcome(substitute_vars, text, known), expected) << misc::to_utf8(text);
    }
}

TEST(variables, no_variable_is_looked_up_for_a_text_without_placeholders)
{
    EXPECT_EQ(substitute_vars(U"", lookup_in({}, 0)), U"");
    EXPECT_EQ(substitute_vars(U"C:\\a {b} $c", lookup_in({}, 0)), U"C:\\a {b} $c");
}

TEST(variables, substitution_gives_what_one_regular_expression_for_each_name_gives)
{
    random_texts random;
    for (int i = 0; i < 3000; ++i) {
        variables known;
        for (const char32_t* const name : {U"A", U"B", U"AB", U"A.", U"A+", U"A|1|B", U"1"}) {
            known[name] = random.next(4);
        }
        const text32 text = random.next(10);
        ASSERT_EQ(outcome(substitute_vars, text, known), outcome(plain::substitute, text, known))
            << misc::to_utf8(text);
    }
}

TEST(variables, separators_are_normalised_as_by_three_passes)
{
    EXPECT_EQ(normalise_separators(U"C:/a//b\\c"), U"C:\\a\\b\\c");
    EXPECT_EQ(normalise_separators(U"\\\\server\\share"), U"\\server\\share");
    EXPECT_EQ(normalise_separators(U"a///b"), U"a\\\\b");
    random_texts random;
    for (int i = 0; i < 3000; ++i) {
        const text32 text = random.next(12);
        ASSERT_EQ(normalise_separators(text), plain::normalise(text)) << misc::to_utf8(text);
    }
}

} // namespace
} // namespace nrd::installation
