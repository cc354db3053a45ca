#include "multiconsole/console_document.h"

#include "support/console_text.h"

#include <gtest/gtest.h>
#include <thread>
#include <vector>

namespace nrd::multiconsole {

namespace {

TEST(console_document, shows_what_is_printed_under_its_title)
{
    test::console_text console("t\u00EDtulo \u0416");
    {
        const auto document = console_document::open("t\u00EDtulo \u0416");
        EXPECT_TRUE(console.is_open());
        document->print(u"one\n");
        document->print(u"half ");
        document->print(u"line\n\n\u4E2D\xD83D\xDE00 tab\there\n");
        EXPECT_EQ(console.text(), "one\nhalf line\n\n\u4E2D\U0001F600 tab\there\n");
    }
}

TEST(console_document, two_documents_do_not_mix)
{
    test::console_text console("first");
    const auto first = console_document::open("first");
    first->print(u"1\n");
    EXPECT_EQ(console.text(), "1\n");
    {
        test::console_text other("second");
        const auto second = console_document::open("second");
        second->print(u"2\n");
        EXPECT_EQ(other.text(), "2\n");
    }
}

TEST(console_document, takes_lines_from_several_threads)
{
    test::console_text console("threads");
    const auto document = console_document::open("threads");
    std::vector<std::thread> threads;
    threads.reserve(4);
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&document] {
            for (int line = 0; line < 25; ++line) {
                document->print(u"a line\n");
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    std::string all;
    for (int i = 0; i < 100; ++i) {
        all += "a line\n";
    }
    EXPECT_EQ(console.text(), all);
}

} // namespace

} // namespace nrd::multiconsole
