#include "misc/language.h"

#include "misc/command_line.h"
#include "misc/system_info.h"

#include <array>
#include <optional>

namespace nrd::misc {

namespace {

struct named_language {
    std::string_view name;
    language value;
};

constexpr named_language locale_languages[] = {
    {"en", language::english},
    {"pt", language::portuguese},
    {"es", language::spanish},
    {"fr", language::french},
    {"it", language::italian},
    {"ja", language::japanese},
    {"ko", language::korean},
    {"ru", language::russian},
    {"zh-Hans", language::simplified_chinese},
    {"zh-Hant", language::traditional_chinese},
    {"de", language::german},
};

constexpr named_language stored_languages[] = {
    {"default", language::standard},
    {"jp", language::japanese},
    {"tc", language::traditional_chinese},
    {"ch", language::simplified_chinese},
};

constexpr std::array<const char*, 12> codes = {
    nullptr, "en", "pt", "es", "fr", "de", "it", "jp", "ko", "ru", "zh-Hant", "zh-Hans",
};

std::string user_language()
{
    const std::string locale = user_locale_name();
    const std::string_view name = locale;
    const std::string_view region = name.size() >= 5 ? name.substr(3, 2) : std::string_view();
    return language_code(language_of_locale(name.substr(0, 2), region));
}

} // namespace

language language_of_locale(std::string_view name, std::string_view region)
{
    if (name == "zh") {
        const bool traditional = region == "HK" || region == "TW" || region == "MO";
        return traditional ? language::traditional_chinese : language::simplified_chinese;
    }
    for (const named_language& each : locale_languages) {
        if (name == each.name) {
            return each.value;
        }
    }
    return language::english;
}

language language_of_name(std::string_view name)
{
    for (const named_language& each : stored_languages) {
        if (name == each.name) {
            return each.value;
        }
    }
    return language_of_locale(name, {});
}

std::string language_code(language value)
{
    return value == language::standard ? get_language() : codes.at(static_cast<std::size_t>(value));
}

std::string get_language()
{
    if (const std::optional<std::string>& chosen = lang_override()) {
        return *chosen;
    }
    static const std::string asked = user_language();
    return asked;
}

} // namespace nrd::misc
