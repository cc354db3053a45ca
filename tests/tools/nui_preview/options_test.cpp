#include "tools/nui_preview/options.h"

#include <gtest/gtest.h>

namespace {

using namespace nrd::tools::preview;

std::string refusal(std::vector<std::string> words)
{
    words.insert(words.begin(), "nui_preview");
    try {
        parse_options(words);
    } catch (const wrong_options& error) {
        return error.what();
    }
    return "taken";
}

TEST(preview_options_test, each_option_sets_its_own)
{
    const preview_options options =
        parse_options({"nui_preview", "--png", "a.png", "ui/x.json", "--tree", "a.tree", "--play",
                       "a.txt", "--lang", "ja", "--resources", "res", "--size", "800x600"});
    EXPECT_EQ(options.file, "ui/x.json");
    EXPECT_EQ(options.picture, "a.png");
    EXPECT_EQ(options.tree, "a.tree");
    EXPECT_EQ(options.script, "a.txt");
    EXPECT_EQ(options.lang, "ja");
    EXPECT_EQ(options.resources, "res");
    EXPECT_EQ(options.size, (window_size{800, 600}));
}

TEST(preview_options_test, the_window_stays_open_only_if_nothing_is_written_or_played)
{
    EXPECT_FALSE(parse_options({"", "x.json", "--lang", "de", "--size", "9x9"}).has_output());
    for (const char* const output : {"--png", "--tree", "--play"}) {
        EXPECT_TRUE(parse_options({"", "x.json", output, "file"}).has_output()) << output;
    }
}

TEST(preview_options_test, what_is_wrong_is_told_in_a_sentence)
{
    const char* const no_size = " is not a width and a height, as in 800x600.";
    EXPECT_EQ(refusal({}), "There is no layout file to show, see --help.");
    EXPECT_EQ(refusal({"--help"}), "taken");
    EXPECT_EQ(refusal({"a", "b"}),
              "There are two layout files, a and b, and one at a time can be shown.");
    EXPECT_EQ(refusal({"a", "--zoom"}), "The option --zoom is not known, see --help.");
    EXPECT_EQ(refusal({"a", "--png"}), "The option --png needs a value, see --help.");
    EXPECT_EQ(refusal({"a", "--png", "--tree", "t"}),
              "The option --png needs a value, and --tree is an option itself.");
    EXPECT_EQ(refusal({"a", "--png", ""}),
              "The option --png needs a value, and the one given is empty.");
    for (const char* const size : {"800", "800x", "x600", "0x5", "5x-1", "8e2x6", "5x5x5", " 5x5",
                                   "99999999999x5", "20000x5"}) {
        EXPECT_EQ(refusal({"a", "--size", size}), std::string("The size ") + size + no_size);
    }
}

} // namespace
