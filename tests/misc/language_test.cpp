#include "misc/language.h"

#include "misc/command_line.h"
#include "misc/system_info.h"

#include <algorithm>
#include <cctype>
#include <gtest/gtest.h>

namespace nrd::misc {

namespace {

TEST(language, a_locale_names_the_language_and_what_is_not_translated_is_english)
{
    constexpr struct {
        const char* name;
        const char* region;
        const char* code;
    } cases[] = {
        {"en", "GB", "en"},         {"pt", "BR", "pt"},      {"es", "", "es"},
        {"fr", "CA", "fr"},         {"de", "AT", "de"},      {"it", "IT", "it"},
        {"ja", "JP", "jp"},         {"ko", "KR", "ko"},      {"ru", "RU", "ru"},
        {"zh", "TW", "zh-Hant"},    {"zh", "HK", "zh-Hant"}, {"zh", "MO", "zh-Hant"},
        {"zh", "CN", "zh-Hans"},    {"zh", "", "zh-Hans"},   {"zh-Hans", "", "zh-Hans"},
        {"zh-Hant", "", "zh-Hant"}, {"nl", "NL", "en"},      {"", "", "en"},
        {"EN", "", "en"},           {"jp", "", "en"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(language_code(language_of_locale(each.name, each.region)), each.code)
            << each.name << "-" << each.region;
    }
}

TEST(language, stored_names_have_some_of_their_own)
{
    EXPECT_EQ(language_of_name("default"), language::standard);
    EXPECT_EQ(language_of_name("jp"), language::japanese);
    EXPECT_EQ(language_of_name("ja"), language::japanese);
    EXPECT_EQ(language_of_name("tc"), language::traditional_chinese);
    EXPECT_EQ(language_of_name("ch"), language::simplified_chinese);
    EXPECT_EQ(language_of_name("de"), language::german);
    EXPECT_EQ(language_of_name("klingon"), language::english);
}

TEST(language, the_command_lines_choice_goes_before_the_systems)
{
    const std::string asked = get_language();
    EXPECT_NE(asked, "");
    EXPECT_EQ(language_code(language::standard), asked);
    for (const char* const chosen : {"de", "anything", ""}) {
        lang_override() = chosen;
        EXPECT_EQ(get_language(), chosen);
    }
    lang_override().reset();
    EXPECT_EQ(get_language(), asked);
}

TEST(language, the_system_tells_the_users_language_and_the_keyboards)
{
    EXPECT_GE(user_locale_name().size(), 2U);
    EXPECT_NE(user_language_id(), 0);
    const std::string keyboard = keyboard_language_name();
    EXPECT_EQ(keyboard.size(), 3U) << keyboard;
    EXPECT_TRUE(std::all_of(keyboard.begin(), keyboard.end(), [](unsigned char letter) {
        return std::isupper(letter);
    })) << keyboard;
}

} // namespace

} // namespace nrd::misc
