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

} // namespace
