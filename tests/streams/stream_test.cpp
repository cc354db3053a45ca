#include "streams/stream.h"

#include "streams/streams.h"

#include <gtest/gtest.h>

namespace nrd::streams {

namespace {

/// Writes "mark[stream]text " into a text that it shares with others.
class marked_observer : public stream_observer {
public:
    marked_observer(char mark, std::string& told) : mark_(mark), told_(told) {}
    void notify(const char* stream_name, std::size_t stream_name_length, const char* text,
                std::size_t text_length) override
    {
        told_ += mark_ + ("[" + std::string(stream_name, stream_name_length) + "]") +
                 std::string(text, text_length) + " ";
    }

private:
    char mark_;
    std::string& told_;
};

TEST(stream, tells_each_observer_once_in_the_order_of_attaching)
{
    std::string told;
    marked_observer a('a', told);
    marked_observer b('b', told);
    marked_observer stranger('s', told);
    stream s("name");
    EXPECT_EQ(s.name(), "name");
    s.write("dropped", 7);
    s.attach(&b);
    s.attach(&a);
    s.attach(&b);
    s.write("one\0two", 7);
    EXPECT_EQ(told, std::string("b[name]one\0two a[name]one\0two ", 30));
    told.clear();
    s.detach(&stranger);
    s.detach(nullptr);
    s.detach(&b);
    s.write("x", 1);
    s.attach(&b);
    s.write("y", 1);
    EXPECT_EQ(told, "a[name]x a[name]y b[name]y ");
}

TEST(stream, asks_for_lazy_text_once_and_only_if_someone_looks)
{
    std::string told;
    marked_observer a('a', told);
    marked_observer b('b', told);
    int asked = 0;
    const auto produce = [&asked] { return std::to_string(++asked); };
    stream s("s");
    s.write_lazy(produce);
    EXPECT_EQ(asked, 0);
    s.attach(&a);
    s.attach(&b);
    s.write_lazy(produce);
    EXPECT_EQ(told, "a[s]1 b[s]1 ");
}

TEST(streams, are_made_on_first_use_and_told_apart_by_exact_name)
{
    std::string told;
    marked_observer a('a', told);
    find_stream("Case").attach(&a);
    stream_write("Case", "1", 1);
    stream_write("case", "2", 1);
    stream_write_lazy("Case", [] { return std::string("3"); });
    find_stream("Case").detach(&a);
    stream_write("Case", "4", 1);
    EXPECT_EQ(told, "a[Case]1 a[Case]3 ");
    EXPECT_EQ(&find_stream("Case"), &find_stream("Case"));
    EXPECT_EQ(find_stream("case").name(), "case");
}

} // namespace

} // namespace nrd::streams
