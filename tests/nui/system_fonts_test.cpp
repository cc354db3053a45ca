#include "nui/text/system_fonts.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace {

using nui::SystemFonts;

std::set<std::string>& files()
{
    static std::set<std::string> existing;
    return existing;
}

bool isThere(const std::string& path)
{
    return files().contains(path);
}

nui::SystemFont font(std::string family, std::string file, std::int32_t index = 0)
{
    nui::SystemFont result{.family = std::move(family), .style = {}, .file = std::move(file)};
    result.index = index;
    return result;
}

/// A search, and all that it told on its way.
struct Search {
    Search(const SystemFonts& fonts, const std::string& lang, const std::string& nativeName,
           bool isSpecific)
        : specific(isSpecific)
    {
        path = fonts.findSystemFont(lang, nativeName, specific, printFont,
                                    [this](const std::string& line) { log += line + "\n"; });
    }

    bool specific;
    std::string printFont = "before";
    std::string log;
    std::string path;
};

TEST(system_fonts, the_registry_names_families_with_their_type_and_files)
{
    const auto text = [](const char* name, const char* data) {
        std::string records;
        for (const nui::SystemFont& each : nui::fontsOfRegistryValue(name, data))
            records += each.family + "/" + each.style + "/" + each.file + "/" +
                       std::to_string(each.index) + (each.bold ? "b" : "") +
                       (each.italic ? "i" : "") + "\n";
        return records;
    };
    EXPECT_EQ(text("Segoe UI (TrueType)", "segoeui.ttf"), "Segoe UI//segoeui.ttf/0\n");
    EXPECT_EQ(text("Yu Gothic Bold & Yu Gothic UI Semibold & Yu Gothic UI Bold (TrueType)",
                   "YuGothB.TTC"),
              "Yu Gothic Bold/bold/YuGothB.TTC/0b\n"
              "Yu Gothic UI Semibold/bold/YuGothB.TTC/1b\n"
              "Yu Gothic UI Bold/bold/YuGothB.TTC/2b\n");
    EXPECT_EQ(text("Arial Bold Italic", "arialbi.otf"),
              "Arial Bold Italic/bold italic/arialbi.otf/0bi\n");
    EXPECT_EQ(text("Demi Regular Medium", "x.ttf"), "Demi Regular Medium/demi/x.ttf/0b\n");
    EXPECT_EQ(text("Courier 10,12,15 (VGA res)", "COURE.FON"), "");
    EXPECT_EQ(text("Short", ".ttf"), "");
    EXPECT_EQ(text("Empty", ""), "");
}

TEST(system_fonts, a_face_is_found_by_the_beginning_of_its_family)
{
    files() = {"F/arial.ttf", "F/both.ttc", "/elsewhere/tahoma.ttf"};
    const SystemFonts fonts("F/",
                            {font("Both B", "both.ttc", 1), font("Arial Bold", "arialbd.ttf"),
                             font("Arial", "arial.ttf"), font("Both A", "both.ttc"),
                             font("Tahoma", "/elsewhere/tahoma.ttf")},
                            isThere);
    EXPECT_EQ(fonts.findFontfileSafe("Ari"), "F/arial.ttf");
    EXPECT_EQ(fonts.findFontfileSafe("Arial Bold"), "");
    EXPECT_EQ(fonts.findFontfileSafe("Both"), "F/both.ttc");
    EXPECT_EQ(fonts.findFontfileSafe("Both B"), "F/both.ttc?1");
    EXPECT_EQ(fonts.findFontfileSafe("Tahoma"), "/elsewhere/tahoma.ttf");
    EXPECT_EQ(fonts.findFontfileSafe("Courier"), "");
}

TEST(system_fonts, paper_gets_the_family_that_is_nearest_to_the_screens)
{
    const SystemFonts fonts("",
                            {font("Arial Black", ""), font("Yu Gothic Regular", ""),
                             font("Yu Gothic", ""), font("Malgun Gothic", ""),
                             font("Meiryo UI", ""), font("Leelawadee Bold", "")},
                            isThere);
    const auto printed = [&fonts](const std::string& name) {
        std::string result = "before";
        fonts.findBestSystemPrintFont(name, result);
        return result;
    };
    EXPECT_EQ(printed("Yu Gothic UI"), "Yu Gothic Regular");
    EXPECT_EQ(printed("Malgun Gothic UI"), "Malgun Gothic");
    EXPECT_EQ(printed("Meiryo UI"), "Meiryo UI");
    EXPECT_EQ(printed("Leelawadee UI"), "Leelawadee Bold");
    EXPECT_EQ(printed("Yu Gothic UIRegular"), "Yu Gothic Regular");
    EXPECT_EQ(printed("Unknown"), "Arial Black");
    EXPECT_EQ(printed(""), "Arial Black");

    std::string none = "before";
    SystemFonts("", {}, isThere).findBestSystemPrintFont("Arial", none);
    EXPECT_EQ(none, "");
}

class language_font_test : public testing::Test {
protected:
    language_font_test()
    {
        files() = {"F/segoeui.ttf", "F/malgun.ttf", "F/YuGothM.ttc", "F/arial.ttf"};
    }

    SystemFonts fonts{"F/",
                      {font("Segoe UI", "segoeui.ttf"), font("Malgun Gothic", "malgun.ttf"),
                       font("Malgun Gothic UI", "malgun.ttf"), font("Arial", "arial.ttf")},
                      isThere};
};

TEST_F(language_font_test, the_systems_own_face_does_for_the_systems_language)
{
    const Search korean(fonts, "kor", "Malgun Gothic UI", false);
    EXPECT_EQ(korean.path, "F/malgun.ttf");
    EXPECT_EQ(korean.printFont, "Malgun Gothic");
    EXPECT_EQ(korean.log, "!nativeName.empty()\nnativeName: Malgun Gothic UI\npath: F/malgun.ttf\n"
                          "!path.empty()\n!specificLanguage\n"
                          "systemFonts[k]: jp\nsystemFonts[k]: ko\n"
                          "strutil::stringStartsWith(lang, systemFonts[k]): true\n");
}

TEST_F(language_font_test, another_language_gets_the_face_that_is_made_for_it)
{
    const Search found(fonts, "ko", "Segoe UI", true);
    EXPECT_EQ(found.path, "F/malgun.ttf");
    EXPECT_TRUE(found.specific);
    EXPECT_EQ(found.printFont, "Malgun Gothic");
    EXPECT_EQ(found.log, "!nativeName.empty()\nnativeName: Segoe UI\npath: F/segoeui.ttf\n"
                         "!path.empty()\n"
                         "i value: 0\nsystemFonts[i + 1]: Yu Gothic UI\n"
                         "i value: 4\nsystemFonts[i + 1]: Malgun Gothic UI\n"
                         "path2 = findFontfileSafe(systemFonts[i + 1]): F/malgun.ttf\n"
                         "findBestSystemPrintFont(systemFonts[i + 1], printFont);\n"
                         "systemFonts[i + 1]: Malgun Gothic UI\nprintFont: before\n"
                         "path2: F/malgun.ttf\n");
}

TEST_F(language_font_test, a_face_that_the_list_lacks_is_looked_for_by_its_file)
{
    const Search found(fonts, "jpn", "Segoe UI", true);
    EXPECT_EQ(found.path, "F/YuGothM.ttc?1");
    EXPECT_TRUE(found.specific);
    EXPECT_EQ(found.log, "!nativeName.empty()\nnativeName: Segoe UI\npath: F/segoeui.ttf\n"
                         "!path.empty()\n"
                         "i value: 0\nsystemFonts[i + 1]: Yu Gothic UI\npath2 is empty\n"
                         "systemFonts[i + 2][0] == 0: false\n"
                         "path2 = fontsPath + systemFonts[i + 2];\n"
                         "path2 += systemFonts[i + 3];\n"
                         "findBestSystemPrintFont(systemFonts[i + 1], printFont);\n"
                         "systemFonts[i + 1]: Yu Gothic UI\nprintFont: before\n"
                         "path2: F/YuGothM.ttc?1\n");
}

TEST_F(language_font_test, without_a_face_for_it_the_systems_own_must_do)
{
    for (const char* const lang : {"chs", "ru", "zh-Hans"}) {
        const Search found(fonts, lang, "Segoe UI", true);
        EXPECT_EQ(found.path, "F/segoeui.ttf") << lang;
        EXPECT_FALSE(found.specific) << lang;
        EXPECT_EQ(found.printFont, "Arial") << lang;
        EXPECT_TRUE(found.log.ends_with("path2.empty()\nspecificLanguage = false;\n")) << found.log;
    }
    const Search chinese(fonts, "chs", "Segoe UI", true);
    EXPECT_NE(chinese.log.find("path2.clear();\ni value: 12\n"), std::string::npos) << chinese.log;

    const Search nothing(fonts, "ru", "", true);
    EXPECT_EQ(nothing.path, "");
    EXPECT_TRUE(nothing.log.starts_with("i value: 0\n")) << nothing.log;
}

TEST_F(language_font_test, the_systems_own_face_is_recognised_in_the_table)
{
    // Its file is known: it is taken as it is.
    const Search known(fonts, "ko", "Malgun Gothic UI", true);
    EXPECT_EQ(known.path, "F/malgun.ttf");
    EXPECT_TRUE(known.log.ends_with("nameMatch && !path.empty()\n")) << known.log;

    // It is not, and the table's file is taken without asking the list again.
    const Search byFile(fonts, "en", "Yu Gothic UI", true);
    EXPECT_EQ(byFile.path, "F/YuGothM.ttc?1");
    EXPECT_FALSE(byFile.specific);
    EXPECT_EQ(byFile.log, "!nativeName.empty()\nnativeName: Yu Gothic UI\npath: \n"
                          "i value: 0\nsystemFonts[i + 1]: Yu Gothic UI\n"
                          "systemFonts[i + 2][0] == 0: false\n"
                          "path2 = fontsPath + systemFonts[i + 2];\n"
                          "path2 += systemFonts[i + 3];\n"
                          "path2: F/YuGothM.ttc?1\n");
}

TEST(system_fonts, fields_get_the_faces_of_all_languages_their_own_first)
{
    files() = {"F/gothic.ttc", "F/malgun.ttf", "F/msyh.ttc"};
    const SystemFonts fonts("F/",
                            {font("Yu Gothic UI", "gothic.ttc", 1),
                             font("Malgun Gothic UI", "malgun.ttf"),
                             font("Microsoft YaHei UI", "msyh.ttc")},
                            isThere);
    using Files = std::vector<std::string>;
    EXPECT_EQ(fonts.languageFontFiles("en"),
              (Files{"F/gothic.ttc?1", "F/malgun.ttf", "F/msyh.ttc"}));
    EXPECT_EQ(fonts.languageFontFiles("kor"),
              (Files{"F/malgun.ttf", "F/gothic.ttc?1", "F/msyh.ttc"}));
    for (const char* const simplified : {"chs", "zh-Hans"})
        EXPECT_EQ(fonts.languageFontFiles(simplified),
                  (Files{"F/msyh.ttc", "F/gothic.ttc?1", "F/malgun.ttf"}));
}

TEST(system_fonts, this_systems_list_is_read_once)
{
    EXPECT_EQ(&SystemFonts::ofThisSystem(), &SystemFonts::ofThisSystem());
    EXPECT_EQ(SystemFonts::ofThisSystem().findFontfileSafe("no such family"), "");
}

} // namespace
