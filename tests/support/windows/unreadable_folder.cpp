#include "support/unreadable_folder.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace nrd::test {

struct unreadable_folder::restorer {
    HANDLE folder;
    ~restorer() { CloseHandle(folder); }
};

unreadable_folder::unreadable_folder(const misc::path& folder)
    : restorer_(new restorer{CreateFileW(folder.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                         FILE_FLAG_BACKUP_SEMANTICS, nullptr)})
{
    EXPECT_NE(restorer_->folder, INVALID_HANDLE_VALUE) << misc::to_utf8(folder);
}

unreadable_folder::~unreadable_folder() = default;

} // namespace nrd::test
