#include "support/unreadable_folder.h"

#include "misc/host_file_system.h"

#include <boost/filesystem/operations.hpp>
#include <gtest/gtest.h>
#include <linux/capability.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace nrd::test {

namespace fs = boost::filesystem;

namespace {

struct capabilities {
    __user_cap_header_struct header = {_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct data[_LINUX_CAPABILITY_U32S_3] = {};

    void get() { EXPECT_EQ(syscall(SYS_capget, &header, data), 0); }
    void set() { EXPECT_EQ(syscall(SYS_capset, &header, data), 0); }
};

} // namespace

struct unreadable_folder::restorer {
    fs::path folder;
    fs::perms permissions;
    capabilities before;
};

// Permissions stop root only while it has given up its right to pass over them.
unreadable_folder::unreadable_folder(const misc::path& folder) : restorer_(new restorer)
{
    restorer_->folder = misc::to_host(folder);
    restorer_->permissions = fs::status(restorer_->folder).permissions();
    restorer_->before.get();
    capabilities fewer = restorer_->before;
    fewer.data[0].effective &= ~(1U << CAP_DAC_OVERRIDE | 1U << CAP_DAC_READ_SEARCH);
    fs::permissions(restorer_->folder, fs::no_perms);
    fewer.set();
}

unreadable_folder::~unreadable_folder()
{
    restorer_->before.set();
    fs::permissions(restorer_->folder, restorer_->permissions);
}

} // namespace nrd::test
