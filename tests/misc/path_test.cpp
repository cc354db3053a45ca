#include "misc/path.h"

#include <gtest/gtest.h>

namespace nrd::misc {

namespace {

/// The text with the separators that were written.
std::string written(const path& p)
{
    return to_utf8(to_text32(p));
}

struct parts_case {
    std::string_view text;
    /// root name|root directory|relative path|parent|filename|stem|extension
    std::string_view parts;
};

// What the library gives on Windows, odd ones included: of a path that is only a root the filename
// is that root, and behind the name of a device a separator is no root.
constexpr parts_case parts_cases[] = {
    {R"(.)", R"(||.||.|.|)"},
    {R"(..)", R"(||..||..|..|)"},
    {R"(.a)", R"(||.a||.a||.a)"},
    {R"(a.)", R"(||a.||a.|a|.)"},
    {R"(C:)", R"(C:||||C:|C:|)"},
    {R"(C:x)", R"(C:||x|C:|x|x|)"},
    {R"(C:/)", R"(C:|/||C:|/|/|)"},
    {R"(C:\a\b.txt)", R"(C:|\|a\b.txt|C:\a|b.txt|b|.txt)"},
    {R"(C:\a\\b\)", R"(C:|\|a\\b\|C:\a\\b|.|.|)"},
    {R"(C:/a/b\c)", R"(C:|/|a/b\c|C:/a/b|c|c|)"},
    {R"(C:\\a)", R"(C:|\|a|C:\|a|a|)"},
    {R"(C:\a\..\b)", R"(C:|\|a\..\b|C:\a\..|b|b|)"},
    {R"(\\server)", R"(\\server||||\\server|\\server|)"},
    {R"(\\server\)", R"(\\server|\||\\server|\|\|)"},
    {R"(\\server\share\x)", R"(\\server|\|share\x|\\server\share|x|x|)"},
    {R"(//server/share/x/)", R"(//server|/|share/x/|//server/share/x|.|.|)"},
    {R"(//)", R"(//||||//|//|)"},
    {R"(\\\a)", R"(|\|a|\|a|a|)"},
    {R"(////a//)", R"(|/|a//|////a|.|.|)"},
    {R"(\)", R"(|\|||\|\|)"},
    {R"(a\\b\\)", R"(||a\\b\\|a\\b|.|.|)"},
    {R"(a/)", R"(||a/|a|.|.|)"},
    {R"(a\.)", R"(||a\.|a|.|.|)"},
    {R"(./)", R"(||./|.|.|.|)"},
    {R"(COM1:\x)", R"(COM1:||x|COM1:|x|x|)"},
    {R"(a\b:c)", R"(||a\b:c|a|b:c|b:c|)"},
    {R"(\\server\\x)", R"(\\server|\|x|\\server\|x|x|)"},
    {R"(:)", R"(:||||:|:|)"},
    {R"(:\a)", R"(:||a|:|a|a|)"},
    {R"(...)", R"(||...||...|..|.)"},
};

TEST(path, is_taken_apart_by_the_rules_of_windows)
{
    for (const parts_case& each : parts_cases) {
        const path p = to_path(each.text);
        std::string parts = written(p.root_name());
        for (const path& part : {p.root_directory(), p.relative_path(), p.parent_path(),
                                 p.filename(), p.stem(), p.extension()}) {
            parts += "|" + written(part);
        }
        EXPECT_EQ(parts, each.parts) << each.text;
        EXPECT_EQ(written(p), each.text);
    }
}

TEST(path, is_absolute_with_both_a_root_name_and_a_root_directory)
{
    for (const char* const text : {"C:\\", "C:/a", "\\\\server\\share", "//server/"}) {
        EXPECT_TRUE(to_path(text).is_absolute()) << text;
    }
    for (const char* const text : {"", "a", "C:", "C:a", "\\a", "\\\\server", "COM1:\\x"}) {
        EXPECT_TRUE(to_path(text).is_relative()) << text;
    }
}

TEST(path, is_joined_with_one_separator)
{
    constexpr struct {
        std::string_view left, right, joined;
    } cases[] = {
        {R"()", R"(x)", R"(x)"},          {R"(C:)", R"(x)", R"(C:x)"},
        {R"(C:)", R"(\x)", R"(C:\x)"},    {R"(C:\)", R"(x)", R"(C:\x)"},
        {R"(C:\)", R"(\x)", R"(C:\\x)"},  {R"(a)", R"()", R"(a)"},
        {R"(a)", R"(C:\x)", R"(a\C:\x)"}, {R"(a)", R"(..)", R"(a\..)"},
        {R"(a)", R"(x/y)", R"(a\x/y)"},   {R"(a\)", R"(x)", R"(a\x)"},
        {R"(a/)", R"(/x)", R"(a//x)"},    {R"(\\server)", R"(x)", R"(\\server\x)"},
        {R"(C:\a)", R"(\)", R"(C:\a\)"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(written(to_path(each.left) / to_path(each.right)), each.joined);
    }
    path appended = to_path("a\\b");
    EXPECT_EQ(to_utf8(appended += ".lnk"), "a\\b.lnk");
}

TEST(path, is_compared_by_components_and_by_case)
{
    constexpr struct {
        std::string_view left, right;
        int order;
    } cases[] = {
        {R"(a//b)", R"(a\b)", 0},    {R"(a)", R"(A)", 1},      {R"(C:\)", R"(C:/)", 0},
        {R"(C:)", R"(C:\)", -1},     {R"(a\)", R"(a)", 1},     {R"(a\.)", R"(a\)", 0},
        {R"(\\s\x)", R"(//s/x)", 1}, {R"(a\b)", R"(a-b)", -1}, {R"(a)", R"(a\b)", -1},
        {R"(a b)", R"(a\b)", 1},     {R"(\\a)", R"(\a)", 1},   {R"(C:\\a)", R"(C:\a)", 0},
        {R"(\)", R"(a)", -1},        {R"(///a)", R"(/a)", 0},  {R"(C:x)", R"(C:\x)", 1},
        {R"(/)", R"(.)", 1},         {R"(//)", R"(\\)", -1},
    };
    for (const auto& each : cases) {
        const path left = to_path(each.left);
        const path right = to_path(each.right);
        const int order = left.compare(right);
        EXPECT_EQ((order > 0) - (order < 0), each.order) << each.left << " " << each.right;
        EXPECT_EQ(left == right, each.order == 0) << each.left << " " << each.right;
        EXPECT_EQ(left < right, each.order < 0) << each.left << " " << each.right;
    }
}

TEST(path, keeps_its_text_until_separators_are_made_preferred)
{
    EXPECT_EQ(written(to_path("//server/a\\b//c/").make_preferred()), "\\\\server\\a\\b\\\\c\\");
    const text32 odd = U"C:\\\u0416\\\x1F600\\\xD800.txt";
    EXPECT_EQ(to_text32(to_path(std::u32string_view(odd))), odd);
    EXPECT_EQ(to_utf8(to_path("C:\\Pr\u00F6be\\\u4E2D.txt").filename()), "\u4E2D.txt");
    EXPECT_EQ(describe_call("rename", {to_path("C:\\a/b"), to_path("")}), "rename(C:\\a\\b,)");
}

} // namespace

} // namespace nrd::misc
