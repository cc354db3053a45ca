#include "streams/streams.h"

#include "misc/clock.h"
#include "misc/command_line.h"
#include "misc/file_system.h"
#include "support/console_text.h"
#include "support/file_content.h"
#include "support/temp_folder.h"

#include <cstdio>
#include <gtest/gtest.h>

namespace nrd::streams {

namespace {

using test::read_file;

/// Streams cannot be unmade, so each test has a name for its own; the settings folder is a fresh
/// one.
class stream_outputs : public testing::Test {
protected:
    stream_outputs() : name_(testing::UnitTest::GetInstance()->current_test_info()->name())
    {
        misc::prefs_override() = settings_.path();
    }
    ~stream_outputs() override
    {
        set_stream_file(name_, false); // the folder cannot go while a file in it is open
        set_stream_console(name_, false);
        misc::prefs_override().reset();
    }

    [[nodiscard]] misc::path log_folder() const
    {
        return settings_ / "Tavrolen Corporation\\log" / misc::to_path(std::string_view(name_));
    }
    void write(std::string_view text) const { stream_write(name_, text.data(), text.size()); }
    [[nodiscard]] misc::path file() const { return stream_file_path(name_).value_or("none"); }
    [[nodiscard]] std::string file_text() const
    {
        std::string text = read_file(file());
        std::erase(text, '\r');
        return text;
    }

    std::string name_;

private:
    test::temp_folder settings_;
};

std::string now_as_name()
{
    const misc::local_time now = misc::get_local_time();
    char text[40];
    std::snprintf(text, sizeof(text), "%d_%02d_%02d__%02d_%02d_%02d", now.year, now.month, now.day,
                  now.hour, now.minute, now.second);
    return text;
}

TEST_F(stream_outputs, a_folder_made_too_late_is_not_noticed_until_the_file_is_set_again)
{
    write("lost");
    EXPECT_EQ(stream_file_path(name_), std::nullopt);
    EXPECT_TRUE(misc::missing(log_folder()));
    misc::create_directories(log_folder());
    write("lost as well");
    EXPECT_EQ(stream_file_path(name_), std::nullopt);
    set_stream_file(name_, true);
    write("kept");
    EXPECT_EQ(file_text(), "kept\n");
}

TEST_F(stream_outputs, a_new_stream_opens_a_file_named_by_the_time)
{
    misc::create_directories(log_folder());
    const std::string before = now_as_name();
    write("first\n");
    const std::string after = now_as_name();
    EXPECT_EQ(misc::to_utf8(file().parent_path()), misc::to_utf8(log_folder()));
    const std::string name = misc::to_utf8(file().filename());
    EXPECT_TRUE(before <= name && name <= after) << before << " " << name << " " << after;
    // Each write is on disk at once, with a line end of the file's own.
    EXPECT_EQ(file_text(), "first\n\n");
    write("");
    EXPECT_EQ(file_text(), "first\n\n\n");
}

TEST_F(stream_outputs, a_file_is_switched_off_and_on)
{
    misc::create_directories(log_folder());
    set_stream_file(name_, true);
    const misc::path first = file();
    write("1");
    set_stream_file(name_, true);
    EXPECT_EQ(misc::to_utf8(file()), misc::to_utf8(first));
    set_stream_file(name_, false);
    EXPECT_EQ(stream_file_path(name_), std::nullopt);
    write("2");
    set_stream_file(name_, true);
    write("3");
    set_stream_muted(name_, -1);
    write("4");
    EXPECT_EQ(stream_file_path(name_), std::nullopt);
    set_stream_file(name_, true); // muting outweighs it
    write("5");
    set_stream_muted(name_, 0);
    write("6");
    // Within one second the same file is appended to.
    std::string all;
    for (const misc::path& each : misc::directory_entries(log_folder())) {
        all += read_file(each);
    }
    std::erase(all, '\r');
    EXPECT_EQ(all, "1\n3\n6\n");
}

TEST_F(stream_outputs, a_file_that_cannot_be_opened_is_done_without)
{
    test::write_file(log_folder(), "a file where the folder should be");
    write("lost");
    set_stream_file(name_, true);
    write("lost");
    EXPECT_EQ(stream_file_path(name_), std::nullopt);
    EXPECT_EQ(read_file(log_folder()), "a file where the folder should be");
}

TEST_F(stream_outputs, a_console_shows_the_bytes_of_the_stream)
{
    test::console_text console(name_);
    write("before\n");
    set_stream_console(name_, true);
    set_stream_console(name_, true);
    write("a\xC3\xA9\n"); // two bytes, two characters
    EXPECT_EQ(console.text(), "a\u00C3\u00A9\n");
    set_stream_muted(name_, 1);
    write("muted\n");
    set_stream_muted(name_, 0);
    write("again\n");
    EXPECT_TRUE(console.text().ends_with("again\n")) << console.text();
    EXPECT_EQ(console.text().find("muted"), std::string::npos);
}

} // namespace

} // namespace nrd::streams
