#include "inst/installation/parser.h"

#include "support/file_content.h"
#include "support/log_capture.h"
#include "support/spec_text.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>
#include <sstream>
#include <stdexcept>

namespace nrd::installation {
namespace {

using misc::to_utf8;
using test::write_file;

const std::string default_var = "var DEFAULT_PROGRAM_DIRECTORY = C:\\Program Files\\\n";
const std::string name_var = "<var name='APP_NAME' value='App'/>";

std::string document(const std::string& sections)
{
    return "<installation>" + sections + "</installation>\n";
}

class import : public testing::Test {
protected:
    spec import_text(std::string_view xml)
    {
        write_file(file_, xml);
        return import_spec(file_);
    }

    /// "text at file:line:column".
    std::string fault(std::string_view xml)
    {
        write_file(file_, xml);
        const import_result result = import_install_xml(file_);
        EXPECT_EQ(test::spec_text(result.imported), default_var);
        EXPECT_TRUE(result.imported.working_directory.empty());
        if (!result.error) {
            return "none";
        }
        return folder_.plain(result.error->description + " at " + to_utf8(result.error->file)) +
               ":" + std::to_string(result.error->line) + ":" +
               std::to_string(result.error->column);
    }

    std::string preprocessed(std::string_view text)
    {
        write_file(file_, text);
        std::ostringstream out;
        preprocess(file_, out);
        return out.str();
    }

    test::temp_folder folder_;
    misc::path file_ = folder_ / "install.xml";
};

TEST_F(import, every_section_is_read_and_what_is_missing_is_empty)
{
    const spec s = import_text(document(R"(
        <block_processes><block_process name="a.exe" os="win"/><block_process/></block_processes>
        <vars> <var name="APP_NAME" value="${N}"/> <var value="&lt;&#228;&#x1F600;" name="N"/> </vars>
        <registry><key path="SOFTWARE/x" name="v" data="${N}/1"/><key/></registry>
        <packages>
          <package name="main" os="win" bits="64"><filesets>
            <fileset in="a/b" out="${P}//c/" create_folders="false"/><fileset/>
          </filesets></package>
          <package/>
        </packages>
        <shortcuts><shortcut location="l/" destination="d/" os=""/><shortcut/></shortcuts>
        <path_entries><path_entry path="p/" app_code="c"/><path_entry/></path_entries>
        <unknown><x/></unknown>)"));
    EXPECT_EQ(test::spec_text(s), default_var + "var APP_NAME = ${N}\n"
                                                "var N = <\xc3\xa4\xf0\x9f\x98\x80\n"
                                                "package main (win, 64)\n"
                                                "  a\\b -> ${P}\\c\\ [false]\n"
                                                "   -> \n"
                                                "package  (, )\n"
                                                "key SOFTWARE/x : v = ${N}/1\n"
                                                "key  :  = \n"
                                                "path c = p/\n"
                                                "path  = \n"
                                                "shortcut l/ -> d/ ()\n"
                                                "shortcut  ->  (all)\n"
                                                "process a.exe (win)\n"
                                                "process  ()\n");
    EXPECT_EQ(s.working_directory, folder_.path());
}

TEST_F(import, the_entries_of_a_section_follow_this_table)
{
    const std::vector<std::pair<std::string, std::string>> cases = {
        // the last of the two attributes, whichever it is
        {"<vars><var name='A' win_value='1' value='2'/></vars>", "2"},
        {"<vars><var name='A' value='2' win_value='1'/></vars>", "1"},
        {"<vars><var name='A' VALUE='2' Win_Value='1' x='3'/></vars>", ""},
        // the first of two variables, the first of two sections
        {"<vars><var name='A' value='1'/><var name='A' value='2'/></vars>", "1"},
        {"<vars><var name='A' value='1'/></vars><vars><var name='A' value='2'/></vars>", "1"},
        // any child is an entry, but for comments and blanks
        {"<vars> <x name='A' value='1'/> <!-- <var name='B'/> --> <?x?> </vars>", "1"},
        {"<vars><var name='A' value='1'/>text</vars>", "1; var  = "},
        {"<vars><var name='A' value='1'/><![CDATA[ ]]></vars>", "1; var  = "},
        // the folder for programs is the machine's to say
        {"<vars><var name='DEFAULT_PROGRAM_DIRECTORY' value='D:'/><var name='A'/></vars>", ""},
        {"<vars><var name='A' value=' a\tb\r\nc '/></vars>", " a b c "},
    };
    for (const auto& [sections, expected] : cases) {
        const std::string with_name =
            "<vars>" + name_var + sections.substr(std::string("<vars>").size());
        std::string text = test::spec_text(import_text(document(with_name)));
        text = text.substr(default_var.size() + std::string("var APP_NAME = App\n").size());
        for (std::size_t at; (at = text.find('\n')) != text.npos;) {
            text.replace(at, 1, at + 1 == text.size() ? "" : "; ");
        }
        EXPECT_EQ(text, "var A = " + expected) << sections;
    }
}

TEST_F(import, a_file_without_the_name_of_the_application_throws)
{
    for (const std::string& xml : {std::string("<other/>"), document("<vars/>")}) {
        EXPECT_THROW(import_text(xml), std::invalid_argument) << xml;
    }
}

TEST_F(import, include_puts_a_file_in_place_of_the_line)
{
    write_file(folder_ / "sub\\one.xml", "1\n#include \"two.xml\"\n1 end");
    write_file(folder_ / "sub\\two.xml", "2\r\n");
    write_file(folder_ / "\xc3\xa4 b.xml", "umlaut");
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"", ""},
        {"a\n\nb", "a\n\nb\n"},
        {"a\r\nb\r\n", "a\r\nb\r\n"},
        {"a\n#include \"sub/one.xml\"\nb\n", "a\n1\n2\r\n1 end\nb\n"},
        {"#include\"sub\\two.xml\"", "2\r\n"},
        {"#include\t x \"\xc3\xa4 b.xml\" rest\r\n", "umlaut\n"},
        {"#includes \"sub/two.xml\"\n", "2\r\n"}, // nothing is asked of what follows the word
        {"<!--\n#include \"sub/two.xml\"\n-->\n", "<!--\n2\r\n-->\n"},
        {" #include \"sub/two.xml\"\n", " #include \"sub/two.xml\"\n"},
        {"#Include \"sub/two.xml\"\n#includ", "#Include \"sub/two.xml\"\n#includ\n"},
        {"a\n#include \"missing.xml\"\nb", "a\nb\n"},
        {"a\n#include \"\nb", "a\nb\n"}, // an empty name
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(preprocessed(text), expected) << text;
    }
}

TEST_F(import, include_without_a_quoted_name_throws_and_says_where)
{
    write_file(folder_ / "part.xml", "\n\n#include part\n");
    try {
        preprocessed("#include \"part.xml\"\n");
        FAIL();
    } catch (const std::out_of_range& error) {
        EXPECT_EQ(folder_.plain(error.what()),
                  "T:\\part.xml:3: #include without a quoted file name");
    }
    EXPECT_THROW(remove_quotes(""), std::out_of_range);
    EXPECT_EQ(remove_quotes("\""), "");
    EXPECT_EQ(remove_quotes("a\"b\"c\"d"), "b\"c");
}

TEST_F(import, a_fault_is_told_with_the_parsers_words_at_its_place_in_the_authors_file)
{
    write_file(folder_ / "good.xml", "<vars>\n</vars>\n");
    write_file(folder_ / "bad.xml", "<vars>\n  <var name=></vars>\n");
    EXPECT_EQ(fault(""), "No document element found at T:\\install.xml:1:1");
    EXPECT_EQ(fault("<installation>\n <vars></var></installation>"),
              "Start-end tags mismatch at T:\\install.xml:2:10");
    EXPECT_EQ(fault("<installation>\n#include \"good.xml\"\n\n<vars a></vars></installation>"),
              "Error parsing element attribute at T:\\install.xml:4:9");
    EXPECT_EQ(fault("<installation>\n#include \"good.xml\"\n#include \"bad.xml\"\n</installation>"),
              "Error parsing element attribute at T:\\bad.xml:2:13");
    EXPECT_EQ(fault("<installation>\n#include \"good.xml\"\n"),
              "Start-end tags mismatch at T:\\good.xml:2:8");
}

TEST_F(import, the_log_of_an_import_is_this)
{
    write_file(folder_ / "vars.xml", "<vars><var name=\"APP_NAME\" value=\"App\"/></vars>\n");
    const test::log_capture log;
    import_text("<installation>\n"
                "#include \"vars.xml\"\n"
                "<packages><package name='p' os='win' bits='all'><filesets>"
                "<fileset in='a/' out='b' create_folders='c'/></filesets></package></packages>"
                "<registry><key path='k'/></registry>"
                "<path_entries><path_entry path='p' app_code='c'/></path_entries>"
                "<shortcuts><shortcut location='l' destination='d'/></shortcuts>"
                "<block_processes><block_process name='n' os='o'/></block_processes>"
                "</installation>");
    const std::string text = folder_.plain(log.text());
    EXPECT_EQ(text.substr(0, text.find("Parsed spec: ")),
              "Attempting xml import.\n"
              "Preprocessing T:\\install.xml\n"
              "Removing quotes from  \"vars.xml\"\n"
              "Preprocessing T:\\vars.xml\n"
              "Import successful.\n"
              "Parsing xml node to spec.\n"
              "Parsing xml node to var.\n"
              "Parsed: APP_NAME, App\n"
              "Adding vars.\n"
              "Finding var: APP_NAME\nCan't find APP_NAME\nAdding var: APP_NAMEApp\n"
              "Parsing xml node to packages.\n"
              "Parsing xml node to package details:\n"
              "Parsing xml node to filesets.\n"
              "Parsing xml node to fileset.\n"
              "Parsed to: a\\, b, c\n"
              "Parsing xml node to reg keys.\n"
              "Parsing xml node to reg key.\n"
              "Parsing xml node to path entries.\n"
              "Parsing xml node to path entry.\n"
              "Parsed to: p, c\n"
              "Parsing xml node to shortcuts.\n"
              "Parsing xml node to shortcut.\n"
              "Parsed to: l, d, all\n"
              "Parsing xml node to block processes.\n"
              "Parsing xml node to block process.\n"
              "Parsing to: n, o\n");
    EXPECT_NE(text.find("Parsed spec: AppVars:\nID: DEFAULT_PROGRAM_DIRECTORY, "), text.npos);
}

TEST_F(import, the_log_of_a_failed_import_ends_with_the_parsers_words)
{
    const test::log_capture log;
    import_text("<a>");
    EXPECT_EQ(folder_.plain(log.text()), "Attempting xml import.\nPreprocessing T:\\install.xml\n"
                                         "Import failed.\nStart-end tags mismatch\n");
}

} // namespace
} // namespace nrd::installation
