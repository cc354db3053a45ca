#pragma once

#include "support/temp_folder.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>

namespace nrd::vs_installer {

/// A machine on which host applications can be set up, as far as an installer can tell. All of it
/// goes again in the end, so a machine that has hosts of its own is refused.
class host_machine : public testing::Test {
protected:
    host_machine();
    ~host_machine() override;

    /// A value of HKEY_LOCAL_MACHINE\SOFTWARE; `key` is relative to that, UTF-8.
    static void value(std::string_view key, std::string_view name, std::string_view data);
    /// An entry in the system's list of programs.
    static void listed(std::string_view key, std::string_view name, const misc::path& location);
    /// Illustrator's program of 32 or 64 bits in its place below a folder.
    static void illustrator(const misc::path& folder, int bits);

    test::temp_folder folder_;
};

/// The key for programs of the other word size, where the system keeps them apart.
extern const std::string wow;

} // namespace nrd::vs_installer
