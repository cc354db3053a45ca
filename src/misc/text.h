#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace nrd::misc {

/// A string of Unicode code points: the form in which variables, paths and values are held.
/// Unpaired surrogates of a Windows file name are kept as code points, so that no name is lost.
using text32 = std::u32string;

// Conversions. Malformed UTF-8 becomes U+FFFD, one for each byte that fits nowhere; unpaired
// surrogates travel through all three encodings (in UTF-8 as three bytes) and come back unchanged.
std::string to_utf8(std::u32string_view text);
std::string to_utf8(std::u16string_view text);
std::u16string to_utf16(std::u32string_view text);
std::u16string to_utf16(std::string_view utf8);
text32 to_text32(std::string_view utf8);
text32 to_text32(std::u16string_view text);

/// The pieces between delimiters, empty ones included. An empty text has no pieces, and a text
/// that ends in the delimiter has one more, empty, piece.
std::vector<std::string> split(std::string_view text, char delimiter);
std::vector<text32> split(std::u32string_view text, char32_t delimiter);

text32 replace_char(std::u32string_view text, char32_t from, char32_t to);
std::string replace_char(std::string_view text, char from, char to);

/// Every "/" becomes a backslash.
text32 replace_separators(std::u32string_view text);

/// Runs of `character` become one. The beginning of the text is no exception, so the double
/// backslash of a network path is halved as well.
text32 collapse_repeated(std::u32string_view text, char32_t character);

template <class Char>
[[nodiscard]] bool starts_with(std::basic_string_view<Char> text,
                               std::type_identity_t<std::basic_string_view<Char>> prefix)
{
    return text.starts_with(prefix);
}

/// Lowers the ASCII letters in place; all other characters stay.
void to_lower(std::string& text);
void to_lower(text32& text);

/// Makes a text safe from variable expansion by writing "$", "{" and "}" as words between tildes.
text32 escape_expansion(std::u32string_view text);

/// The reverse of escape_expansion. It cannot tell words that a user typed from escaped ones.
text32 unescape_expansion(std::u32string_view text);

/// Lower-case hexadecimal, two digits for each byte.
std::string to_hex(const std::vector<std::uint8_t>& bytes);

/// Takes digits of either case; throws std::invalid_argument for anything else.
std::vector<std::uint8_t> from_hex(std::string_view text);

/// One UTF-16 unit in upper case as the file system and the registry of Windows compare names.
char16_t upper_case(char16_t unit);

/// The text in upper case, unit by unit: equal for names that Windows takes as the same, and
/// ordered as Windows lists folders and registry keys.
std::u16string name_key(std::u16string_view name);

} // namespace nrd::misc
