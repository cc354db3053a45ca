#include "nui/text/choose_fonts.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace {

bool isThere(const std::string& path)
{
    return path.starts_with("F/");
}

nui::SystemFonts windowsFonts(const std::string& nativeFace)
{
    nui::SystemFont own{.family = nativeFace, .style = {}, .file = "native.ttf"};
    nui::SystemFont japanese{.family = "Yu Gothic UI", .style = {}, .file = "YuGothM.ttc"};
    japanese.index = 1;
    nui::SystemFont print{.family = "Arial", .style = {}, .file = "arial.ttf"};
    return {"F/", {own, japanese, print}, isThere};
}

class choose_fonts_test : public testing::Test {
protected:
    choose_fonts_test() { fonts.fontsDir = "R/fonts"; }

    /// What it told; "true" or "false" in the last line.
    std::string change(const char* selected, bool detect)
    {
        log_.clear();
        const nui::SystemFonts system = windowsFonts(nativeFace());
        const bool changed =
            nui::changeLanguageAndFont(fonts, lang, selected, detect,
                                       {.systemFonts = [&]() -> const nui::SystemFonts& {
                                            asked_ += "fonts ";
                                            return hasNativeFont ? system : none_;
                                        },
                                        .deviceLanguage =
                                            [this] {
                                                asked_ += "device ";
                                                return deviceLanguage;
                                            },
                                        .keyboardLanguage =
                                            [this] {
                                                asked_ += "keyboard ";
                                                return keyboard;
                                            }},
                                       [this](const std::string& line) { log_ += line + "\n"; });
        return log_ + (changed ? "true" : "false");
    }

    /// The part of what it told from the choice of the file on.
    [[nodiscard]] std::string ending() const
    {
        return log_.substr(log_.find("default font path identified as: "));
    }

    /// That of the system the test runs on.
    static const std::string& nativeFace()
    {
        static const std::string face = [] {
            nui::Fonts probe;
            nui::Lang table("");
            const nui::SystemFonts system = windowsFonts("x");
            nui::changeLanguageAndFont(probe, table, "en", false,
                                       {[&]() -> const nui::SystemFonts& { return system; },
                                        [] { return "en"; }, [] { return ""; }},
                                       [](const std::string&) {});
            return probe.defaultFont->getFaceName();
        }();
        return face;
    }

    nui::Fonts fonts;
    nui::Lang lang{""};
    std::string deviceLanguage = "en";
    std::string keyboard = "ENU";
    bool hasNativeFont = true;

    /// What was asked of the system since the last call.
    std::string asked() { return std::exchange(asked_, {}); }

private:
    std::string asked_;
    nui::SystemFonts none_{"F/", {}, isThere};
    std::string log_;
};

TEST_F(choose_fonts_test, the_system_is_asked_only_for_what_is_needed)
{
    (void)change("en", false);
    EXPECT_EQ(asked(), "device fonts fonts ");
    (void)change("en", false);
    (void)change(nullptr, false);
    EXPECT_EQ(asked(), "");
    (void)change("en", true);
    EXPECT_EQ(asked(), "keyboard device fonts fonts ");
    (void)change("en", true);
    EXPECT_EQ(asked(), "keyboard ");
}

TEST_F(choose_fonts_test, the_first_call_makes_the_fonts_and_tells_each_step)
{
    const std::string& face = nativeFace();
    EXPECT_EQ(
        change("en", false),
        "entering changeLanguageAndFont\n"
        "engine language unicode set to: en\n"
        "input lang empty; setting to engine language unicode: en\n"
        "using native fonts\n"
        "no current default font; initialising empty fonts\n"
        "default win font initialised\n"
        "no current default edit font; initialising default ftgl edit font\n"
        "language search: false\n"
        "this->inputLang: en\n"
        "Lang::getDeviceLanguage(): en\n"
        "defaultFont->getFaceName(): " +
            face +
            "\n"
            "defaultPrintFont: \n"
            "!nativeName.empty()\n"
            "nativeName: " +
            face +
            "\n"
            "path: F/native.ttf\n"
            "!path.empty()\n"
            "!specificLanguage\n"
            "systemFonts[k]: jp\nsystemFonts[k]: ko\nsystemFonts[k]: chs\nsystemFonts[k]: cht\n"
            "default font path identified as: F/native.ttf\n"
            "choosing general fallback font\n"
            "default font path has fallen back to: F/native.ttf\n"
            "setting default edit font to F/native.ttf\n"
            "leaving changeLanguageFont\n"
            "true");
    EXPECT_NE(face, "");
    EXPECT_TRUE(fonts.usingNativeFonts);
    EXPECT_EQ(fonts.defaultPrintFont, "Arial");
    EXPECT_EQ(fonts.defaultEditFont->fontPath, "F/native.ttf");
    EXPECT_EQ(lang.languageUnicode, "en");
    EXPECT_EQ(lang.languageCode, "en");
}

TEST_F(choose_fonts_test, without_a_language_and_a_keyboard_nothing_happens)
{
    const char* const nothing = "leaving changeLanguageAndFont; no input lang provided and not "
                                "detecting lang\nfalse";
    EXPECT_EQ(change(nullptr, false), std::string("entering changeLanguageAndFont\n") + nothing);
    keyboard.clear();
    EXPECT_EQ(change(nullptr, true),
              std::string("entering changeLanguageAndFont\ndetecting input lang...\n"
                          "input lang was not detected\n") +
                  nothing);
    EXPECT_EQ(fonts.defaultFont, nullptr);
}

TEST_F(choose_fonts_test, what_is_in_force_already_is_left_unchanged)
{
    change("en", true);
    EXPECT_EQ(change("en", true), "entering changeLanguageAndFont\n"
                                  "detecting input lang...\n"
                                  "engine input lang detected: enu\n"
                                  "leaving changeLanguageAndFont unchanged\n"
                                  "false");
    EXPECT_EQ(change("en", false), "entering changeLanguageAndFont\n"
                                   "leaving changeLanguageAndFont unchanged\n"
                                   "false");
    EXPECT_EQ(change(nullptr, true), "entering changeLanguageAndFont\n"
                                     "detecting input lang...\n"
                                     "engine input lang detected: enu\n"
                                     "leaving changeLanguageAndFont unchanged\n"
                                     "false");
}

TEST_F(choose_fonts_test, another_keyboard_changes_the_edit_font_and_not_the_language)
{
    change("en", false);
    keyboard = "JPN";
    const std::string told = change(nullptr, true);
    EXPECT_TRUE(told.starts_with("entering changeLanguageAndFont\n"
                                 "detecting input lang...\n"
                                 "engine input lang detected: jpn\n"
                                 "engine input lang changed to: jpn\n"
                                 "engine language unicode unchanged as no selected lang provided\n"
                                 "using native fonts\n"
                                 "language search: true\n"))
        << told;
    EXPECT_EQ(ending(), "default font path identified as: F/YuGothM.ttc?1\n"
                        "setting default edit font to F/YuGothM.ttc?1\n"
                        "leaving changeLanguageFont\n");
    EXPECT_EQ(lang.languageUnicode, "en");
    EXPECT_EQ(fonts.defaultEditFont->fontPath, "F/YuGothM.ttc?1");
    EXPECT_EQ(fonts.defaultPrintFont, "Yu Gothic UI");
}

TEST_F(choose_fonts_test, a_keyboard_that_is_not_known_any_more_leaves_the_language_to_choose)
{
    change("en", true);
    keyboard.clear();
    const std::string told = change("en", true);
    EXPECT_TRUE(told.starts_with("entering changeLanguageAndFont\n"
                                 "detecting input lang...\n"
                                 "input lang was not detected\n"
                                 "engine input lang changed to: \n"
                                 "engine language unicode set to: en\n"
                                 "input lang empty; setting to engine language unicode: en\n"))
        << told;
}

TEST_F(choose_fonts_test, a_chinese_language_is_no_keyboard_and_gets_the_general_font)
{
    change("zh-Hans", false);
    EXPECT_EQ(ending(), "default font path identified as: F/native.ttf\n"
                        "choosing general fallback font\n"
                        "default font path has fallen back to: F/native.ttf\n"
                        "setting default edit font to F/native.ttf\n"
                        "leaving changeLanguageFont\n");
    EXPECT_EQ(lang.languageCode, "zh");
}

TEST_F(choose_fonts_test, korean_on_a_korean_system_falls_back_all_the_same)
{
    deviceLanguage = "ko";
    change("ko", false);
    EXPECT_EQ(ending(), "default font path identified as: F/native.ttf\n"
                        "choosing fallback font for input lang: ko\n"
                        "default font path has fallen back to: R/fonts/Nanum Gothic.ttf\n"
                        "setting default edit font to R/fonts/Nanum Gothic.ttf\n"
                        "leaving changeLanguageFont\n");
}

TEST_F(choose_fonts_test, korean_on_another_system_keeps_a_font_that_was_made_for_it)
{
    change("ko", false);
    // malgun.ttf is in the folder, though not in the list.
    EXPECT_EQ(ending(), "default font path identified as: F/malgun.ttf\n"
                        "setting default edit font to F/malgun.ttf\n"
                        "leaving changeLanguageFont\n");
}

TEST_F(choose_fonts_test, without_any_font_the_files_beside_the_layouts_are_taken)
{
    hasNativeFont = false;
    fonts.fontsDir = "R\\fonts\\";
    change("ru", false);
    EXPECT_EQ(ending(), "default font path identified as: \n"
                        "choosing general fallback font\n"
                        "default font path has fallen back to: R\\fonts\\NotoSans-Regular.ttf\n"
                        "setting default edit font to R\\fonts\\NotoSans-Regular.ttf\n"
                        "leaving changeLanguageFont\n");
}

} // namespace
