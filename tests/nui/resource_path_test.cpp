#include "nui/reader/resource_path.h"

#include <gtest/gtest.h>

namespace {

TEST(resource_path_test, an_absolute_or_empty_name_stands_alone_and_others_are_joined_once)
{
    struct {
        const char* base;
        const char* name;
        const char* joined;
    } const cases[] = {
        {"C:\\a", "b.json", "C:\\a/b.json"},
        {"a/", "b.json", "a/b.json"},
        {"a\\", "b.json", "a\\b.json"},
        {"a", "b\\c", "a/b/c"},
        {"", "b.json", "b.json"},
        {"a", "", ""},
        {"a", "/b", "/b"},
        {"a", "\\b", "\\b"},
        {"a", "C:b", "C:b"},
        {"a", "b:c", "b:c"},
        {"a", "../b", "a/../b"},
    };
    for (const auto& [base, name, joined] : cases)
        EXPECT_EQ(nui::joinPath(base, name), joined);
}

} // namespace
