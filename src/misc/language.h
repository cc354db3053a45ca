#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// The languages of the user interface, and which of them the user wants.

namespace nrd::misc {

/// The numbers are those of stored settings; `standard` leaves the choice to get_language().
enum class language : std::int32_t {
    standard = 0,
    english = 1,
    portuguese = 2,
    spanish = 3,
    french = 4,
    german = 5,
    italian = 6,
    japanese = 7,
    korean = 8,
    russian = 9,
    traditional_chinese = 10,
    simplified_chinese = 11,
};

/// By the two parts of a locale name ("pt", "BR"); a region matters for Chinese alone. English for
/// all that there is no translation for.
language language_of_locale(std::string_view name, std::string_view region);
/// By a name from stored settings, which know some names of their own.
language language_of_name(std::string_view name);
/// The heading of the language's column in the language file.
std::string language_code(language value);

/// The code of the language to speak: what "--lang" gave, whatever it is, else that of the user's
/// locale, which is asked once.
std::string get_language();

} // namespace nrd::misc
