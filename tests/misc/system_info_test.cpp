#include "misc/system_info.h"

#include <gtest/gtest.h>

namespace nrd::misc {

namespace {

TEST(system_info, two_questions_about_the_word_size_differ_on_a_newer_32_bit_windows)
{
    constexpr std::uint16_t x86 = 0x014c;
    constexpr std::uint16_t x64 = 0x8664;
    constexpr struct {
        const char* system;
        bitness_facts facts;
        bool is_64bit;
        bool wow64;
    } cases[] = {
        {"64 bit", {true, true, true, x86, x64, false}, true, true},
        {"64 bit, 64-bit process", {true, true, true, 0, x64, false}, true, false},
        {"32 bit", {true, true, true, 0, x86, false}, true, false},
        {"the call fails", {true, true, false, x86, x64, true}, false, false},
        {"64 bit, old", {true, false, false, 0, 0, true}, true, true},
        {"32 bit, old, or 64-bit process", {true, false, false, 0, 0, false}, false, false},
        {"no kernel32", {}, false, false},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(is_64bit_windows(each.facts), each.is_64bit) << each.system;
        EXPECT_EQ(runs_under_wow64(each.facts), each.wow64) << each.system;
    }
}

TEST(system_info, this_machine_is_known_to_be_64_bit)
{
    EXPECT_TRUE(is_64bit_windows());
    const screen_rectangle area = get_screen_work_area();
    EXPECT_GT(area.right, area.left);
    EXPECT_GT(area.bottom, area.top);
}

} // namespace

} // namespace nrd::misc
