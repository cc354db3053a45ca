#include "inst/installer/model/periodic.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace nrd::installer::model {
namespace {

using std::chrono::milliseconds;

TEST(periodic_calls, come_in_order_when_their_time_has_passed)
{
    std::string calls;
    periodic loop;
    const periodic::clock::time_point start(milliseconds(5000));
    loop.add_timer([&] { calls += "a"; }, 10, false, start);
    loop.add_timer([&] { calls += "b"; }, 25, true, start);
    timer_id stopping;
    stopping = loop.add_timer(
        [&] {
            calls += "c";
            loop.stop_timer(stopping);
        },
        0, false, start);
    periodic_listener listener{[&](void* user) { calls += *static_cast<std::string*>(user); },
                               nullptr};
    std::string sign = "|";
    listener.user = &sign;
    loop.add_listener(&listener);
    for (const int passed : {0, 9, 10, 19, 20, 30, 60}) {
        loop.run(start + milliseconds(passed));
    }
    EXPECT_EQ(calls, "c||a||a|ab|a|"); // counted from the last call, not from the start
    loop.remove_listener(&listener);
    loop.stop_timer(timer_id{{77, 0, 0, 0}});
    calls.clear();
    loop.run(start + milliseconds(70));
    EXPECT_EQ(calls, "a");
}

TEST(periodic_calls, of_nothing_are_an_error)
{
    periodic loop;
    loop.add_timer({}, 0);
    EXPECT_THROW(loop.run(), std::bad_function_call);
}

TEST(periodic_calls, have_ids_that_are_hashed_word_by_word)
{
    const timer_id_hash hash;
    // FNV-1a of one word 1 and three of 0, worked out apart.
    EXPECT_EQ(hash({{1, 0, 0, 0}}), 0xFB69B604U);
    EXPECT_NE(hash({{1, 0, 0, 0}}), hash({{0, 1, 0, 0}}));
}

} // namespace
} // namespace nrd::installer::model
