#include "nui/text/lang.h"

#include "support/file_content.h"
#include "support/nui/layout.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace {

class lang_test : public testing::Test {
protected:
    nui::Lang load(const std::string& content, const std::string& language)
    {
        // Not every name is plain English.
        nrd::test::write_file(folder / "l\xC3\xA4ngfile.txt", content);
        nui::Lang lang(nui::test::hostPath(folder / "l\xC3\xA4ngfile.txt"));
        lang.languageUnicode = language;
        return lang;
    }

    nrd::test::temp_folder folder;
};

TEST_F(lang_test, a_text_is_found_by_language_and_key_and_a_key_without_one_stands_for_itself)
{
    const char* const table = "key\ten\tde\r\n"
                              "OK\tOK\tIn Ordnung\r\n"
                              "back\tBack\t~\r\n"
                              "wave\t~\t~\r\n"
                              "none\t\tnichts\r\n"
                              "OK\tsecond\tzweites\r\n";
    const nui::Lang english = load(table, "en");
    EXPECT_EQ(english.getString("OK"), "OK");
    EXPECT_EQ(english.getString("none"), "");
    EXPECT_EQ(english.getString("Plain text."), "Plain text.");
    EXPECT_EQ(english.getString(std::string("a\0b", 3)), std::string("a\0b", 3));
    EXPECT_EQ(english.getString(""), "");

    const nui::Lang german = load(table, "de");
    EXPECT_EQ(german.getText("OK"), "In Ordnung");
    EXPECT_EQ(german.getString("back"), "Back");
    EXPECT_EQ(german.getString("wave"), "~");
    EXPECT_TRUE(german.has("none"));
    EXPECT_FALSE(german.has("key"));

    EXPECT_EQ(load(table, "fr").getString("OK"), "OK");
}

TEST_F(lang_test, a_row_with_another_number_of_cells_breaks_the_file)
{
    for (const char* const row : {"OK\n", "OK\tOK\n", "OK\tOK\tGut\tBien\n", "\n"}) {
        try {
            load(std::string("key\ten\tde\nBack\tBack\tZur\n") + row + "Next\tNext\tVor\n", "en");
            ADD_FAILURE() << row;
        } catch (const std::out_of_range& error) {
            EXPECT_STREQ(error.what(), "Language file is broken.");
        }
    }
    EXPECT_EQ(load("key\ten\nOK\tFine\n", "en").getString("OK"), "Fine");
    EXPECT_EQ(load("key\ten\nOK\tFine", "en").getString("OK"), "Fine");
}

TEST_F(lang_test, without_a_heading_there_are_no_texts)
{
    EXPECT_EQ(load("", "en").getString("OK"), "OK");
    EXPECT_EQ(load("no heading\nOK\tFine\n", "en").getString("OK"), "OK");
    EXPECT_EQ(nui::Lang(nui::test::hostPath(folder / "missing")).getString("OK"), "OK");
}

TEST_F(lang_test, another_file_takes_the_place_of_the_first_if_it_has_a_heading)
{
    nui::Lang lang = load("key\ten\tde\nOK\tFine\tGut\n", "en");
    EXPECT_EQ(lang.columnCount, 3);

    lang.load(nui::test::hostPath(folder / "missing"));
    EXPECT_EQ(lang.columnCount, 0);
    EXPECT_EQ(lang.getString("OK"), "Fine");

    nrd::test::write_file(folder / "other", "key\ten\nBack\tGo back\nbroken\n");
    EXPECT_THROW(lang.load(nui::test::hostPath(folder / "other")), std::out_of_range);
    EXPECT_EQ(lang.columnCount, 2);
    EXPECT_EQ(lang.getString("OK"), "OK");
    EXPECT_EQ(lang.getString("Back"), "Go back");
}

TEST_F(lang_test, arguments_replace_the_first_mark_of_their_number)
{
    const nui::Lang lang = load("key\ten\n"
                                "share\t%1 of %1\n"
                                "both\t%2 after %1, not %2\n",
                                "en");
    EXPECT_EQ(lang.format("share", "3"), "3 of %1");
    EXPECT_EQ(lang.format("both", "a", "b"), "b after a, not %2");
    EXPECT_EQ(lang.format("both", "%2", "%1"), "%1 after %2, not %2");
    EXPECT_EQ(lang.format("both", "a"), "%2 after a, not %2");
    EXPECT_EQ(lang.format("no entry: %1", "x"), "no entry: x");
    EXPECT_EQ(lang.format("plain", "x", "y"), "plain");
    EXPECT_EQ(lang.format("", "x"), "");
}

TEST_F(lang_test, languages_write_numbers_their_own_way)
{
    nui::Lang lang = load("", "");
    for (const char* const code : {"pt", "es", "fr", "de", "it", "ru"}) {
        lang.setLanguage(code);
        EXPECT_TRUE(lang.usesDecimalComma()) << code;
    }
    for (const char* const code : {"en", "jp", "ko", "zh-Hans", "zh-Hant", ""}) {
        lang.setLanguage(code);
        EXPECT_FALSE(lang.usesDecimalComma()) << code;
    }
}

TEST_F(lang_test, the_systems_language_is_known_by_the_low_bits_of_its_number)
{
    constexpr struct {
        std::uint16_t id;
        const char* code;
    } Cases[] = {
        {0x0409, "en"}, {0x0809, "en"}, {0x0416, "pt"}, {0x0C0A, "es"}, {0x040C, "fr"},
        {0x0407, "de"}, {0x0412, "ko"}, {0x0411, "jp"}, {0x0410, "en"}, {0x0419, "en"},
        {0x0804, "en"}, {0x1400, "en"}, {0, "en"},
    };
    for (const auto& each : Cases)
        EXPECT_EQ(nui::Lang::deviceLanguageOf(each.id), each.code) << each.id;
}

} // namespace
