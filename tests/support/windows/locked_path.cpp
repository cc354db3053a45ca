#include "support/locked_path.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace nrd::test {

struct locked_path::holder {
    HANDLE handle;
    ~holder() { CloseHandle(handle); }
};

locked_path::locked_path(const misc::path& locked)
    : holder_(new holder{CreateFileW(locked.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                     OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr)})
{
    EXPECT_NE(holder_->handle, INVALID_HANDLE_VALUE) << misc::to_utf8(locked);
}

locked_path::~locked_path() = default;

} // namespace nrd::test
