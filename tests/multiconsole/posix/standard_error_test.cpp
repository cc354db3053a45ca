#include "multiconsole/console_document.h"

#include <gtest/gtest.h>

namespace nrd::multiconsole {

namespace {

TEST(standard_error, has_whole_lines_only_until_the_document_closes)
{
    testing::internal::CaptureStderr();
    auto document = console_document::open("log");
    document->print(u"whole\nbegun");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "log: whole\n");
    testing::internal::CaptureStderr();
    document.reset();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "log: begun\n");
}

} // namespace

} // namespace nrd::multiconsole
