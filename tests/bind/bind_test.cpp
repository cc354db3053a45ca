#include "bind/bindable.h"
#include "bind/property.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>

namespace {

using nrd::bind::delegate;
using nrd::bind::link;
using nrd::bind::property;

/// What a value widget does: an equal value changes nothing, a new one raises an event, whose
/// listener pushes.
class box : public nrd::bind::bindable_nui<box, std::string> {
public:
    void setWidgetValue(const std::string& value) override
    {
        if (value == text)
            return;
        text = value.substr(0, limit);
        log += text + " ";
        pushValue();
    }
    std::string getWidgetValue() override { return text; }
    void setEnabled(bool value) { enabled = value; }
    void type(const std::string& typed)
    {
        text = typed;
        pushValue();
    }

    std::string id = "box";
    std::string text;
    std::string log;
    std::size_t limit = 99;
    bool enabled = true;
};

template <class T> int changesBy(property<T>& value, T next)
{
    int changes = 0;
    const link counting = value.changed.connect([&changes] { ++changes; });
    value.set(next);
    return changes;
}

TEST(property, tells_only_of_what_get_answers)
{
    property<int> number(3);
    EXPECT_EQ(changesBy(number, 3), 0);
    EXPECT_EQ(changesBy(number, 4), 1);
    number.setDefault(9);
    EXPECT_EQ(number.get(), 9);
    EXPECT_EQ(changesBy(number, 5), 0);
    EXPECT_EQ(number.get(), 9);
    int changes = 0;
    const link counting = number.changed.connect([&changes] { ++changes; });
    number.setExplicit(true);
    EXPECT_EQ(number.get(), 5);
    EXPECT_EQ(changes, 1);
}

TEST(property, floats_are_equal_within_a_relative_epsilon_and_infinity_is_a_change)
{
    constexpr float Infinity = std::numeric_limits<float>::infinity();
    const struct {
        float from;
        float to;
        int changes;
    } cases[] = {{1.0F, 1.00000001F, 0},       {0.0F, 1.1e-7F, 0},          {0.0F, 1.3e-7F, 1},
                 {1000000.0F, 1000000.06F, 0}, {1000000.0F, 1000000.2F, 1}, {0.0F, Infinity, 1},
                 {Infinity, 1.0F, 1}};
    for (const auto& [from, to, changes] : cases) {
        property<float> value(from);
        EXPECT_EQ(changesBy(value, to), changes) << from << " to " << to;
        EXPECT_EQ(value.get(), to);
    }
}

TEST(signal, listeners_may_come_and_go_while_it_tells)
{
    nrd::bind::signal told;
    std::string log;
    link second;
    link third;
    const link first = told.connect([&] {
        log += "1";
        second.drop();
        third = told.connect([&log] { log += "3"; });
    });
    second = told.connect([&log] { log += "2"; });
    told.emit();
    EXPECT_EQ(log, "1");
    log.clear();
    told.emit();
    EXPECT_EQ(log, "1");
    third = {};
    EXPECT_FALSE(third.isLinked());
}

TEST(bindable, the_model_wins_when_bound_and_each_side_follows_the_other)
{
    property<std::string> model("abc");
    box one;
    box two;
    two.id = "two";
    one.type("unbound");
    one.bind(delegate(model));
    two.bind(delegate(model));
    EXPECT_EQ(one.log + two.log, "abc abc ");
    EXPECT_EQ(model.boundName, "two");
    model.set("model");
    EXPECT_EQ(one.text + " " + two.text, "model model");
    one.type("user");
    EXPECT_EQ(model.get() + " " + two.text, "user user");
    one.setWidgetEnabled(false);
    EXPECT_FALSE(one.enabled);
}

TEST(bindable, a_value_that_a_widget_normalises_comes_back_to_the_model)
{
    property<std::string> model("ok");
    box widget;
    box other;
    widget.limit = 3;
    widget.bind(delegate(model));
    other.bind(delegate(model));
    model.set("toolong");
    EXPECT_EQ(widget.text, "too");
    EXPECT_EQ(model.get(), "too");
    EXPECT_EQ(other.text, "too");
}

TEST(bindable, a_widget_with_a_default_in_force_keeps_what_the_user_typed)
{
    property<std::string> model;
    model.setDefault("default");
    box widget;
    widget.bind(delegate(model));
    EXPECT_EQ(widget.text, "default");
    widget.type("typed");
    EXPECT_EQ(widget.text, "typed");
    EXPECT_EQ(model.get(), "default");
}

TEST(bindable, a_copy_is_bound_by_itself_and_widgets_may_die_before_the_model)
{
    property<std::string> model("a");
    box copy;
    {
        box original;
        original.bind(delegate(model));
        copy = original;
    }
    model.set("b");
    EXPECT_EQ(copy.text, "b");
    {
        const box second(copy);
        EXPECT_EQ(second.text, "b");
    }
    model.set("c");
    EXPECT_EQ(copy.text, "c");
}

} // namespace
