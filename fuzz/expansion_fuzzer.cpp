// The input is a text and the values of some variables, one a line. The expansion must give what
// the rule gives when it is followed by regular expressions alone.

#include "check.h"
#include "inst/installation/variables.h"
#include "misc/text.h"

#include <algorithm>
#include <map>
#include <optional>
#include <regex>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace {

using nrd::installation::first_var_name;
using nrd::misc::text32;

constexpr int most_look_ups = 12;
constexpr std::size_t longest_input = 200;
constexpr std::size_t longest_text = 1000;

struct incomparable : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Ends what would not end, or would grow without bounds.
class guarded_lookup {
public:
    explicit guarded_lookup(const std::map<text32, text32>& vars) : vars_(vars) {}

    text32 operator()(const text32& name, const text32& fallback)
    {
        if (++look_ups_ > most_look_ups) {
            throw incomparable("too many look-ups");
        }
        const auto found = vars_.find(name);
        return found == vars_.end() ? fallback : found->second;
    }

private:
    const std::map<text32, text32>& vars_;
    int look_ups_ = 0;
};

std::wstring to_wide(const text32& text)
{
    const std::u16string units = nrd::misc::to_utf16(text);
    return {units.begin(), units.end()};
}

text32 from_wide(const std::wstring& text)
{
    std::u16string units;
    std::transform(text.begin(), text.end(), std::back_inserter(units),
                   [](wchar_t c) { return static_cast<char16_t>(c); });
    return nrd::misc::to_text32(std::u16string_view(units));
}

/// What the library's expressions cannot bear, which is not what is looked for here: repetitions of
/// repetitions take time without end, and numbers of many digits overflow. A name is looked
/// at, not the input, because a value may stand in a name several times.
bool is_beyond_expressions(const text32& name)
{
    const auto count = [&name](std::u32string_view characters) {
        return std::count_if(name.begin(), name.end(), [characters](char32_t c) {
            return characters.find(c) != std::u32string_view::npos;
        });
    };
    return count(U"*+?|{") > 1 || count(U"0123456789") > 9;
}

text32 expand_by_expressions(text32 text, guarded_lookup lookup)
{
    for (text32 name; !(name = first_var_name(text)).empty();) {
        if (is_beyond_expressions(name)) {
            throw incomparable("beyond the library's expressions");
        }
        const text32 value = lookup(name, nrd::misc::escape_expansion(U"${" + name + U"}"));
        const std::wregex expression(L"\\$\\{" + to_wide(name) + L"\\}");
        text = from_wide(std::regex_replace(to_wide(text), expression, to_wide(value)));
        if (text.size() > longest_text) {
            throw incomparable("too long");
        }
    }
    return nrd::misc::unescape_expansion(text);
}

/// Nothing if it does not end or a name is no expression.
template <class Expand> std::optional<text32> attempt(Expand expand)
{
    try {
        return expand();
    } catch (const incomparable&) {
        return std::nullopt;
    } catch (const std::regex_error&) {
        return std::nullopt;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const std::string input(reinterpret_cast<const char*>(data), size);
    if (input.size() > longest_input) {
        return 0;
    }
    const std::vector<std::string> lines = nrd::misc::split(input, '\n');
    if (lines.empty()) {
        return 0;
    }
    const text32 text = nrd::misc::to_text32(std::string_view(lines[0]));
    std::map<text32, text32> vars;
    for (std::size_t i = 1; i < lines.size() && i <= 4; ++i) {
        const text32 line = nrd::misc::to_text32(std::string_view(lines[i]));
        const std::size_t end = std::min(line.find(U'='), line.size());
        vars.emplace(line.substr(0, end), line.substr(std::min(end + 1, line.size())));
    }
    const auto expected =
        attempt([&] { return expand_by_expressions(text, guarded_lookup(vars)); });
    if (expected) {
        const auto got =
            attempt([&] { return nrd::installation::substitute_vars(text, guarded_lookup(vars)); });
        check(got == expected, "the quick way gives what the expressions give");
        const text32 normal = nrd::installation::normalise_separators(*expected);
        check(normal.find(U'/') == normal.npos, "no forward slash is left");
    }
    return 0;
}
