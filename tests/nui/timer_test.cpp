#include "nui/animation/timers.h"

#include "nui/events/dispatch.h"
#include "nui/widgets/widget.h"
#include "support/nui/frame_clock.h"

#include <atomic>
#include <future>
#include <gtest/gtest.h>
#include <string>
#include <thread>

namespace {

using nui::TimerList;
using nui::Widget;
using nui::WidgetPtr;
using nui::test::FrameClock;

class timer_test : public testing::Test {
protected:
    timer_test()
    {
        for (const WidgetPtr& widget : {first, second})
            subscribe(*widget, nui::TimerDue, note, this);
        first->name = "first";
        second->name = "second";
    }

    /// What was told since the last call.
    std::string dispatched()
    {
        told_.clear();
        timers.dispatchDue(FrameClock::now());
        return told_;
    }

    FrameClock clock;
    TimerList timers{FrameClock::now};
    WidgetPtr first = std::make_shared<Widget>();
    WidgetPtr second = std::make_shared<Widget>();

private:
    static void note(nui::WidgetEvent& event)
    {
        const auto& timer = dynamic_cast<nui::TimerEvent&>(event);
        static_cast<timer_test*>(event.user)->told_ +=
            event.target->name + std::to_string(timer.due) + " ";
        EXPECT_EQ(event.phase, nui::Phase::AtTarget);
    }

    std::string told_;
};

TEST_F(timer_test, a_timer_comes_once_when_its_tick_is_reached)
{
    timers.add(100, first, false);
    timers.add(50, second, false);
    clock.advance(49);
    EXPECT_EQ(dispatched(), "");
    clock.advance(1);
    EXPECT_EQ(dispatched(), "second1050 ");
    clock.advance(500);
    EXPECT_EQ(dispatched(), "first1100 ");
    EXPECT_EQ(dispatched(), "");
}

TEST_F(timer_test, a_second_timer_of_a_widget_moves_the_first_or_does_nothing)
{
    timers.add(100, first, false);
    clock.advance(60);
    timers.add(10, first, false);
    clock.advance(20);
    EXPECT_EQ(dispatched(), "");
    timers.add(100, first, true);
    clock.advance(99);
    EXPECT_EQ(dispatched(), "");
    clock.advance(1);
    EXPECT_EQ(dispatched(), "first1180 ");
}

TEST_F(timer_test, a_timer_without_a_widget_is_dropped)
{
    timers.add(0, nullptr, false);
    timers.add(0, first, false);
    first.reset();
    timers.add(0, second, false);
    EXPECT_EQ(dispatched(), "second1000 ");
}

TEST_F(timer_test, a_listener_may_start_its_timer_again)
{
    subscribe(
        *first, nui::TimerDue,
        [](nui::WidgetEvent& event) {
            static_cast<TimerList*>(event.user)->add(0, event.target->shared_from_this(), false);
        },
        &timers);
    timers.add(0, first, false);
    EXPECT_EQ(dispatched(), "first1000 ");
    clock.advance(5);
    EXPECT_EQ(dispatched(), "first1000 ") << "the one that was added waits for the next step";
    EXPECT_EQ(dispatched(), "first1005 ");
}

TEST_F(timer_test, timers_may_be_added_while_the_loop_takes_them)
{
    constexpr int Count = 200;
    std::atomic<bool> finished = false;
    int heard = 0;
    subscribe(
        *first, nui::TimerDue, [](nui::WidgetEvent& event) { ++*static_cast<int*>(event.user); },
        &heard);
    std::thread worker([&] {
        for (int count = 0; count < Count; ++count)
            timers.add(0, first, true);
        finished = true;
    });
    while (!finished)
        timers.dispatchDue(FrameClock::now());
    worker.join();
    timers.dispatchDue(FrameClock::now());
    EXPECT_GE(heard, 1);
    EXPECT_LE(heard, Count);
    EXPECT_EQ(dispatched(), "");
}

/// A clock that waits while it is asked, which TimerList does under its lock.
std::promise<void>* asked = nullptr;
std::shared_future<void>* answer = nullptr;

std::uint64_t slowClock()
{
    asked->set_value();
    answer->wait();
    return 0;
}

TEST_F(timer_test, a_step_that_finds_the_lock_taken_goes_on_without_timers)
{
    std::promise<void> clockIsAsked;
    std::promise<void> clockMayAnswer;
    std::shared_future<void> mayAnswer = clockMayAnswer.get_future().share();
    asked = &clockIsAsked;
    answer = &mayAnswer;

    timers.add(0, first, false);
    timers.setClock(slowClock);
    std::thread worker([&] { timers.add(0, second, false); });
    clockIsAsked.get_future().wait();
    EXPECT_EQ(dispatched(), "");
    clockMayAnswer.set_value();
    worker.join();
    EXPECT_EQ(dispatched(), "first1000 second0 ");
}

} // namespace
