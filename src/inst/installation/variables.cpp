#include "inst/installation/variables.h"

#include <algorithm>
#include <regex>
#include <unordered_map>
#include <utility>
#include <vector>

namespace nrd::installation {

namespace {

constexpr std::u32string_view opening = U"${";

/// Where the first placeholder's "${" stands, and the "}" that ends it.
struct placeholder_place {
    std::size_t begin = 0;
    std::size_t end = 0;
    bool found = false;
};

placeholder_place find_placeholder(std::u32string_view text, std::size_t from)
{
    const std::size_t end = text.find(U'}', from);
    const std::size_t begin = text.find(opening, from);
    return {begin, end, end != text.npos && begin < end};
}

text32 name_at(std::u32string_view text, const placeholder_place& place)
{
    const std::size_t name_begin = place.begin + opening.size();
    return text32(text.substr(name_begin, place.end - name_begin));
}

bool is_plain_expression(std::u32string_view name)
{
    return name.find_first_of(U"^$\\.*+?()[]{}|") == name.npos;
}

bool has_format_escape(std::u32string_view value)
{
    constexpr std::u32string_view escapes = U"$&`'0123456789";
    for (std::size_t at = value.find(U'$'); at != value.npos; at = value.find(U'$', at + 1)) {
        if (at + 1 < value.size() && escapes.find(value[at + 1]) != escapes.npos) {
            return true;
        }
    }
    return false;
}

void replace_plainly(text32& text, const text32& placeholder, const text32& value, std::size_t from)
{
    text32 result(text, 0, from);
    std::size_t at = from;
    for (std::size_t hit; (hit = text.find(placeholder, at)) != text.npos;
         at = hit + placeholder.size()) {
        result.append(text, at, hit - at).append(value);
    }
    text = result.append(text, at);
}

/// One wide character for each UTF-16 unit, whatever the width of the character type, so that an
/// expression means the same on every system.
std::wstring to_units(std::u32string_view text)
{
    const std::u16string units = misc::to_utf16(text);
    return {units.begin(), units.end()};
}

text32 from_units(const std::wstring& text)
{
    std::u16string units;
    units.reserve(text.size());
    for (const wchar_t unit : text) {
        units += static_cast<char16_t>(unit);
    }
    return misc::to_text32(std::u16string_view(units));
}

void replace_by_expression(text32& text, const text32& name, const text32& value)
{
    const std::wregex expression(L"\\$\\{" + to_units(name) + L"\\}");
    text = from_units(std::regex_replace(to_units(text), expression, to_units(value)));
}

void replace_everywhere(text32& text, const text32& name, const text32& value, std::size_t from)
{
    if (is_plain_expression(name) && !has_format_escape(value)) {
        replace_plainly(text, text32(opening) + name + U"}", value, from);
    } else {
        replace_by_expression(text, name, value);
    }
}

/// Replacing one name after the other in the whole text takes time that grows with the square of
/// their number. Most texts need no more than one pass: they hold plain placeholders only, side by
/// side, whose values bring no new ones.
class single_pass {
public:
    /// Looks the names up, each once, in the order in which they stand.
    single_pass(std::u32string_view text, const variable_lookup& lookup) : result_(text)
    {
        if (!split(text)) {
            return;
        }
        for (const token& each : tokens_) {
            if (each.is_name && !values_.contains(each.text)) {
                const text32 name(each.text);
                text32 value = lookup(name, misc::escape_expansion(text32(opening) + name + U"}"));
                if (value.find_first_of(U"${}") != value.npos) {
                    put_together();
                    replace_everywhere(result_, name, value, 0);
                    return;
                }
                values_.emplace(each.text, std::move(value));
            }
        }
        put_together();
    }

    /// The text with all names replaced that were looked up.
    [[nodiscard]] const text32& result() const { return result_; }

private:
    struct token {
        std::u32string_view text;
        bool is_name = false;
    };

    /// False if there is more to the text than literal pieces and plain placeholders.
    bool split(std::u32string_view text)
    {
        while (!text.empty()) {
            const std::size_t begin = std::min(text.find_first_of(U"${}"), text.size());
            tokens_.push_back({text.substr(0, begin), false});
            text.remove_prefix(begin);
            const std::size_t end = text.find(U'}');
            if (text.empty()) {
                break;
            }
            if (!text.starts_with(opening) || end == text.npos || end == opening.size() ||
                !is_plain_expression(text.substr(opening.size(), end - opening.size()))) {
                return false;
            }
            tokens_.push_back({text.substr(opening.size(), end - opening.size()), true});
            text.remove_prefix(end + 1);
        }
        return true;
    }

    void put_together()
    {
        text32 whole;
        for (const token& each : tokens_) {
            const auto value = each.is_name ? values_.find(each.text) : values_.end();
            if (!each.is_name) {
                whole += each.text;
            } else if (value != values_.end()) {
                whole += value->second;
            } else {
                whole.append(opening).append(each.text) += U'}';
            }
        }
        result_ = std::move(whole);
    }

    text32 result_;
    std::vector<token> tokens_;
    std::unordered_map<std::u32string_view, text32> values_;
};

} // namespace

text32 first_var_name(std::u32string_view text)
{
    const placeholder_place place = find_placeholder(text, 0);
    return place.found ? name_at(text, place) : text32();
}

text32 substitute_vars(std::u32string_view text, const variable_lookup& lookup)
{
    text32 current = single_pass(text, lookup).result();
    std::size_t from = 0;
    for (auto place = find_placeholder(current, 0); place.found;
         place = find_placeholder(current, from)) {
        const std::size_t begin = place.begin;
        const text32 name = name_at(current, place);
        if (name.empty()) {
            break;
        }
        const text32 value = lookup(name, misc::escape_expansion(text32(opening) + name + U"}"));
        replace_everywhere(current, name, value, begin);
        // A plain name leaves what stands in front of it alone, and nothing there can have become a
        // placeholder, but for a "$" that meets a value which begins with "{".
        from = !is_plain_expression(name) || begin == 0 ? 0 : begin - 1;
    }
    return misc::unescape_expansion(current);
}

bool is_taken_as_written(std::u32string_view value)
{
    // A "}" would end the search for the placeholders behind it.
    return value.find(U'}') == value.npos && value.find(opening) == value.npos &&
           !has_format_escape(value) && misc::unescape_expansion(value) == value;
}

text32 normalise_separators(std::u32string_view text)
{
    const auto is_separator = [](char32_t c) { return c == U'/' || c == U'\\'; };
    text32 result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!is_separator(text[i])) {
            result += text[i];
            continue;
        }
        result += U'\\';
        if (i + 1 < text.size() && is_separator(text[i + 1])) {
            ++i;
        }
    }
    return result;
}

} // namespace nrd::installation
