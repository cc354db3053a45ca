#include "inst/installer/model/installer_app.h"

#include "misc/file_system.h"
#include "support/log_capture.h"
#include "support/product_package.h"

#include <stdexcept>

namespace nrd::installer::model {
namespace {

using installer_app_test = test::product_package;

TEST_F(installer_app_test, installs_every_spec_also_behind_one_that_fails)
{
    installer_app app({product("a"), broken_product("b"), product("c")});
    const misc::path before = misc::current_path();
    const test::log_capture log;
    app.install();
    EXPECT_EQ(misc::current_path(), before);
    const std::string all = installed();
    EXPECT_NE(all.find("a\\a.txt: a\n"), all.npos) << all;
    EXPECT_NE(all.find("c\\c.txt: c\n"), all.npos) << all;
    EXPECT_EQ(log.count("Installer App set password and install."), 3);
    EXPECT_EQ(log.lines().front(), "Installer App install start.");
    EXPECT_EQ(log.lines().back(), "Installer App install complete.");
    EXPECT_TRUE(app.is_installed());
    EXPECT_NE(misc::to_utf8(app.installed_location()).find("programs\\a"), std::string::npos);
    // Nobody polled, so nobody knows of the failure.
    EXPECT_TRUE(app.install_succeeded);
}

TEST_F(installer_app_test, asks_the_first_spec_and_keeps_its_own_copies)
{
    installation::specs given = {product("a"), product("b")};
    installer_app app(given);
    given.front().set_var(U"APP_NAME", U"changed");
    EXPECT_EQ(app.name(), U"Product a");
    EXPECT_FALSE(app.is_installed());
    EXPECT_EQ(app.installed_location(), U"");
    EXPECT_TRUE(app.change_permissions());
    installer_app nameless({installation::spec()});
    EXPECT_THROW(static_cast<void>(nameless.name()), std::invalid_argument);
}

TEST_F(installer_app_test, without_a_working_directory_stays_where_it_is)
{
    installation::spec here = product("a");
    const misc::scoped_current_path package(here.working_directory);
    here.working_directory.clear();
    installer_app app({here});
    app.install();
    EXPECT_NE(installed().find("a\\a.txt: a\n"), std::string::npos);
}

} // namespace
} // namespace nrd::installer::model
