#include "support/console_text.h"

#include "misc/text.h"

#include <gtest/gtest.h>

namespace nrd::test {

namespace {

// There is one standard error for all documents.
int watchers = 0;
std::string captured;

} // namespace

console_text::console_text(std::string title) : title_(std::move(title))
{
    if (watchers++ == 0) {
        captured.clear();
        testing::internal::CaptureStderr();
    }
}

console_text::~console_text()
{
    if (--watchers == 0) {
        testing::internal::GetCapturedStderr();
    }
}

bool console_text::is_open() const
{
    return true;
}

std::string console_text::text()
{
    captured += testing::internal::GetCapturedStderr();
    testing::internal::CaptureStderr();
    std::string shown;
    const std::string mark = title_ + ": ";
    for (const std::string& line : misc::split(captured, '\n')) {
        if (line.starts_with(mark)) {
            shown += line.substr(mark.size()) + "\n";
        }
    }
    return shown;
}

} // namespace nrd::test
