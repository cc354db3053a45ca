#include "tools/sample_machine/sample_hosts.h"

#include "vs/vs_installer/hosts.h"

#include <gtest/gtest.h>

namespace nrd::sample_machine {
namespace {

/// As install.xml names the hosts, with where the installer takes them to be.
std::string found_hosts()
{
    std::string text;
    std::vector<vs_installer::host_app> all = vs_installer::find_adobe_hosts(true);
    const std::vector<vs_installer::host_app> corel = vs_installer::find_corel_hosts();
    all.insert(all.end(), corel.begin(), corel.end());
    for (const vs_installer::host_app& each : all) {
        text += misc::to_utf8(each.name) + (each.is_32_bit ? " 32" : " 64") + " at " +
                misc::to_utf8(each.path) + "\n";
    }
    return text;
}

TEST(sample_hosts, are_found_by_the_installer)
{
    prepare_sample_hosts();
    const std::string expected =
        "Adobe Illustrator 2023 64 at C:\\Program Files\\Adobe\\Adobe Illustrator 2023\n"
        "Adobe Illustrator CC 2015 32 at C:\\Program Files (x86)\\Adobe\\Adobe Illustrator CC "
        "2015\n"
        "CorelDRAW Graphics Suite 2020 64 at "
        "C:\\Program Files\\Corel\\CorelDRAW Graphics Suite 2020\\\n"
        "CorelDRAW Graphics Suite 2018 32 at "
        "C:\\Program Files (x86)\\Corel\\CorelDRAW Graphics Suite 2018\\\n";
    EXPECT_EQ(found_hosts(), expected);

    // A second time changes nothing.
    prepare_sample_hosts();
    EXPECT_EQ(found_hosts(), expected);
}

} // namespace
} // namespace nrd::sample_machine
