#include "streams/installer_log.h"

#include "streams/streams.h"
#include "support/log_capture.h"

#include <gtest/gtest.h>

namespace nrd::streams {

namespace {

TEST(installer_log, lines_have_their_odd_shape)
{
    constexpr struct {
        std::string_view message, line;
    } cases[] = {
        {"", "\n"},
        {"abc", "abc:\n"},
        {"a/b", "a/b:\n"}, // one piece is not shortened
        {"src/inst/x.cpp:7: text", "x.cpp:7: text:\n"},
        {"dir\\sub/file:7: x", "file:7: x:\n"},
        {"C:\\dir\\file:7: x", "C:\\dir\\file:7: x:\n"},
        {"a/b:", "b::\n"},
        {"a/:x", ":x:\n"},
        {":x", ":x:\n"},
        {"file:7: C:\\x/y: done:", "file:7: C:\\x/y: done::\n"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(shape_log_line(each.message), each.line) << each.message;
    }
}

class raw_observer : public stream_observer {
public:
    raw_observer() { find_stream("installer").attach(this); }
    ~raw_observer() override { find_stream("installer").detach(this); }
    raw_observer(const raw_observer&) = delete;
    raw_observer& operator=(const raw_observer&) = delete;
    void notify(const char*, std::size_t, const char* text, std::size_t length) override
    {
        written.append(text, length);
    }

    std::string written;
};

TEST(installer_log, names_the_place_of_the_call_and_the_toolkit_names_none)
{
    const raw_observer raw;
    const test::log_capture log;
    const std::string line = std::to_string(__LINE__ + 1);
    installer_log("Deleting: \u0416");
    toolkit_log("as: it is");
    EXPECT_EQ(raw.written, "installer_log_test.cpp:" + line + ": Deleting: \u0416:\nas: it is");
    EXPECT_EQ(log.text(), "Deleting: \u0416\nas: it is\n");
}

} // namespace

} // namespace nrd::streams
