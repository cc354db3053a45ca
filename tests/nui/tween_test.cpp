#include "nui/animation/tween.h"

#include "nui/events/dispatch.h"
#include "nui/widgets/widget.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace {

using nui::createTween;
using nui::CTween;
using nui::TweenManager;
using nui::Widget;
namespace item = nui::tween_item;

/// What happened, in order; callbacks are plain functions and have no other place.
std::string& history()
{
    static std::string text;
    return text;
}

void noteStart(CTween& /*tween*/)
{
    history() += "start ";
}

void noteEnd(CTween& /*tween*/)
{
    history() += "end ";
}

void noteEvent(nui::WidgetEvent& event)
{
    const auto& told = dynamic_cast<nui::TweenEvent&>(event);
    history() += event.type == nui::tween_event::Started ? "TWEE" : "UWEE";
    history() += std::to_string(static_cast<int>(told.kind)) + " ";
}

class tween_test : public testing::Test {
protected:
    tween_test()
    {
        history().clear();
        subscribe(*widget, nui::tween_event::Started, noteEvent, nullptr);
        subscribe(*widget, nui::tween_event::Ended, noteEvent, nullptr);
    }

    /// The value after each step of a quarter of a second.
    std::string quarters(int count)
    {
        std::string text;
        for (int step = 0; step < count; ++step) {
            manager.update(0.25F);
            text += std::to_string(std::lround(value * 100)) + " ";
        }
        return text;
    }

    TweenManager manager;
    float value = 1;
    nui::WidgetPtr widget = std::make_shared<Widget>();
};

TEST_F(tween_test, each_mode_moves_the_value_its_way)
{
    createTween(manager, 1, {item::value(&value, 5.0F)});
    EXPECT_EQ(quarters(5), "200 300 400 500 500 ");
    EXPECT_EQ(manager.size(), 0U);

    const auto loop = createTween(manager, 0.5F, {item::value(&value, 6.0F), item::loop()});
    EXPECT_EQ(quarters(5), "550 500 550 500 550 ");
    manager.kill(loop);

    value = 1;
    createTween(manager, 0.5F, {item::pingPong(), item::value(&value, 2.0F)});
    EXPECT_EQ(quarters(6), "150 200 150 100 150 200 ");
    EXPECT_EQ(manager.size(), 1U);
}

TEST_F(tween_test, given_values_are_ends_or_starts_and_absolute_or_relative)
{
    createTween(manager, 1, {item::value(&value, 3.0F), item::relative()});
    EXPECT_EQ(quarters(4), "175 250 325 400 ");
    createTween(manager, 1, {item::from(), item::value(&value, 0.0F), item::end()});
    EXPECT_EQ(quarters(4), "100 200 300 400 ");
    createTween(manager, 1, {item::from(), item::relative(), item::value(&value, 4.0F)});
    EXPECT_EQ(quarters(4), "700 600 500 400 ");
}

TEST_F(tween_test, items_behind_the_end_of_the_list_are_not_read)
{
    createTween(manager, 1, {item::value(&value, 5.0F), item::end(), item::delay(9), item::loop()});
    EXPECT_EQ(quarters(4), "200 300 400 500 ");
    EXPECT_EQ(manager.size(), 0U);
}

TEST_F(tween_test, the_delay_passes_before_anything_is_read_or_told)
{
    createTween(manager, 0.5F,
                {item::value(&value, 3.0F), item::delay(0.5F), item::onStart(noteStart),
                 item::onEnd(noteEnd), item::bindTo(widget)});
    EXPECT_FALSE(manager.update(0.25F));
    value = 2;
    EXPECT_EQ(history(), "");
    EXPECT_FALSE(manager.update(0.25F)) << "the first real step: fast frames come one step late";
    EXPECT_EQ(value, 2);
    EXPECT_EQ(history(), "start TWEE1 ");
    EXPECT_TRUE(manager.update(0.25F));
    EXPECT_EQ(value, 2.5F);
    EXPECT_TRUE(manager.update(0.25F));
    EXPECT_EQ(value, 3);
    EXPECT_EQ(history(), "start TWEE1 end UWEE5 ");
    EXPECT_FALSE(manager.update(0.25F));
}

TEST_F(tween_test, each_end_of_a_loop_is_told)
{
    createTween(
        manager, 0.5F,
        {item::value(&value, 3.0F), item::loop(), item::onEnd(noteEnd), item::bindTo(widget)});
    quarters(4);
    EXPECT_EQ(history(), "TWEE1 end UWEE3 end UWEE3 ");
}

TEST_F(tween_test, the_curve_gets_its_parameter)
{
    createTween(
        manager, 1,
        {item::value(&value, 5.0F), item::ease(nui::easing::powerIn), item::easeParameter(3)});
    EXPECT_EQ(quarters(4), "106 150 269 500 ");
}

TEST_F(tween_test, each_type_of_value_moves_within_itself)
{
    bool flag = false;
    std::int8_t int8 = -128;
    std::uint8_t uint8 = 0;
    std::int16_t int16 = -32768;
    std::uint16_t uint16 = 65535;
    std::int32_t int32 = std::numeric_limits<std::int32_t>::min();
    std::uint32_t uint32 = 0;
    createTween(manager, 1,
                {item::value(&flag, true), item::value(&int8, 127), item::value(&uint8, 255),
                 item::value(&int16, 32767), item::value(&uint16, 0),
                 item::value(&int32, std::numeric_limits<std::int32_t>::max()),
                 item::value(&uint32, std::numeric_limits<std::uint32_t>::max())});
    manager.update(0.75F);
    // Fractions are dropped, towards 0.
    EXPECT_FALSE(flag);
    EXPECT_EQ(int8, 63);
    EXPECT_EQ(uint8, 191);
    EXPECT_EQ(int16, 16383);
    EXPECT_EQ(uint16, 16383);
    manager.update(0.25F);
    EXPECT_TRUE(flag);
    EXPECT_EQ(int8, 127);
    EXPECT_EQ(uint8, 255);
    EXPECT_EQ(int16, 32767);
    EXPECT_EQ(uint16, 0);
    EXPECT_EQ(int32, std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(uint32, std::numeric_limits<std::uint32_t>::max());
}

TEST_F(tween_test, integers_stop_at_their_limits_where_a_curve_swings_beyond)
{
    std::uint8_t up = 0;
    std::uint8_t down = 255;
    createTween(manager, 1,
                {item::value(&up, 255), item::value(&down, 0), item::ease(nui::easing::backOut)});
    manager.update(0.75F);
    EXPECT_EQ(up, 255);
    EXPECT_EQ(down, 0);
}

TEST_F(tween_test, without_a_duration_a_single_run_ends_in_its_first_step)
{
    for (const float firstDelta : {0.0F, 0.016F}) {
        value = 1;
        createTween(manager, 0, {item::value(&value, 5.0F), item::onEnd(noteEnd)});
        manager.update(firstDelta);
        EXPECT_EQ(value, 5);
        EXPECT_EQ(manager.size(), 0U);
    }
    EXPECT_EQ(history(), "end end ");
    // A loop is at an end all the time.
    createTween(manager, 0, {item::value(&value, 9.0F), item::loop()});
    manager.update(0);
    EXPECT_EQ(value, 5);
}

TEST_F(tween_test, a_step_beyond_several_runs_ends_one_of_them)
{
    createTween(manager, 0.25F, {item::value(&value, 2.0F), item::loop(), item::onEnd(noteEnd)});
    manager.update(0.625F);
    EXPECT_EQ(value, 1.5F);
    EXPECT_EQ(history(), "end ");
    manager.update(0);
    EXPECT_EQ(history(), "end end ") << "the other one follows";
}

TEST_F(tween_test, a_bound_tween_ends_in_silence_with_its_widget)
{
    createTween(manager, 1,
                {item::value(&widget->alpha, 0.0F), item::bindTo(widget), item::onEnd(noteEnd)});
    manager.update(0.25F);
    widget.reset();
    history().clear();
    manager.update(0.25F);
    EXPECT_EQ(manager.size(), 0U);
    EXPECT_EQ(history(), "");
}

TEST_F(tween_test, a_paused_tween_stands_still_and_does_not_count_as_running)
{
    const auto tween = createTween(manager, 1, {item::value(&value, 5.0F)});
    manager.update(0.25F);
    tween->setPaused(true);
    EXPECT_FALSE(manager.update(0.25F));
    EXPECT_EQ(value, 2);
    tween->setPaused(false);
    EXPECT_TRUE(manager.update(0.25F));
    EXPECT_EQ(value, 3);
}

TEST_F(tween_test, a_killed_tween_leaves_the_value_where_it_is)
{
    const auto tween = createTween(manager, 1, {item::value(&value, 5.0F), item::onEnd(noteEnd)});
    manager.update(0.25F);
    manager.kill(tween);
    manager.kill(tween);
    manager.kill(nullptr);
    EXPECT_TRUE(tween->isKilled());
    manager.update(5);
    EXPECT_EQ(value, 2);
    EXPECT_EQ(history(), "");
}

/// For callbacks that change the manager while it goes through its tweens.
struct Scene {
    TweenManager manager;
    std::array<std::shared_ptr<CTween>, 3> tweens;
    std::array<float, 4> values = {};
};

Scene* scene = nullptr;

/// Of three tweens, the middle one calls `function` in its first step.
std::string valuesAfterStep(nui::TweenCallback function)
{
    Scene own;
    scene = &own;
    for (std::size_t index = 0; index < 3; ++index) {
        own.tweens[index] = createTween(own.manager, 1,
                                        {item::value(&own.values[index], 4.0F),
                                         item::onStart(index == 1 ? function : nullptr)});
    }
    own.manager.update(0.25F);
    scene = nullptr;
    std::string text;
    for (const float value : own.values)
        text += std::to_string(std::lround(value * 4)) + " ";
    return text + "of " + std::to_string(own.manager.size());
}

TEST(tween_change_test, a_callback_may_kill_any_tween_and_none_of_the_others_is_left_out)
{
    const auto killFirst = [](CTween&) { scene->manager.kill(scene->tweens[0]); };
    EXPECT_EQ(valuesAfterStep(killFirst), "4 4 4 0 of 2");
    const auto killItself = [](CTween&) { scene->manager.kill(scene->tweens[1]); };
    EXPECT_EQ(valuesAfterStep(killItself), "4 0 4 0 of 2");
    const auto killLast = [](CTween&) { scene->manager.kill(scene->tweens[2]); };
    EXPECT_EQ(valuesAfterStep(killLast), "4 4 0 0 of 2");
    const auto killAll = [](CTween&) { scene->manager.clear(); };
    EXPECT_EQ(valuesAfterStep(killAll), "4 0 0 0 of 0");
}

TEST(tween_change_test, a_tween_that_a_callback_makes_is_advanced_with_the_rest)
{
    const auto makeAnother = [](CTween&) {
        createTween(scene->manager, 1, {item::value(&scene->values[3], 4.0F)});
    };
    EXPECT_EQ(valuesAfterStep(makeAnother), "4 4 4 4 of 4");
}

TEST(tween_change_test, a_callback_may_run_the_loop)
{
    // The inner pass moves the others, and not the one whose start it is told of.
    const auto runLoop = [](CTween&) { scene->manager.update(0.25F); };
    EXPECT_EQ(valuesAfterStep(runLoop), "8 4 4 0 of 3");
}

} // namespace
