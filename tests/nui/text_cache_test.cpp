#include "nui/text/text_cache.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using nui::TextCache;

TEST(text_cache, keeps_what_was_asked_for_last_by_key_and_text)
{
    TextCache<int, int> cache;
    cache.at(0, "first") = 1;
    cache.at(1, "first") = 2;
    EXPECT_EQ(cache.at(0, "first"), 1);
    EXPECT_EQ(cache.at(1, "first"), 2);
    EXPECT_EQ(cache.at(0, "second"), 0);
    for (int text = 0; text < 255; ++text)
        cache.at(0, std::to_string(text));
    EXPECT_EQ(cache.at(1, "first"), 0) << "256 others have been asked for since";
}

TEST(text_cache, long_texts_drive_out_all_but_the_last_four)
{
    TextCache<int, int> cache;
    cache.at(0, "short") = 1;
    for (int text = 1; text <= 5; ++text)
        cache.at(text, std::string(300000, 'x')) = text;
    for (int text = 2; text <= 5; ++text)
        EXPECT_EQ(cache.at(text, std::string(300000, 'x')), text);
    EXPECT_EQ(cache.at(1, std::string(300000, 'x')), 0);
    EXPECT_EQ(cache.at(0, "short"), 0);
    cache.clear();
    EXPECT_EQ(cache.at(5, std::string(300000, 'x')), 0);
}

} // namespace
