#include "inst/installer/model/welcome_tab_model.h"

#include "inst/installer/model/installer_app.h"
#include "misc/file_system.h"
#include "misc/known_folders.h"
#include "support/log_capture.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace nrd::installer::model {
namespace {

using misc::to_utf8;

installation::spec named(const misc::text32& path)
{
    installation::spec result;
    result.ensure_var(U"APP_NAME", U"App");
    result.ensure_var(U"APP_INSTALL_PATH", path);
    return result;
}

class welcome_tab_model_test : public testing::Test {
protected:
    bool accepts(const std::string& path)
    {
        model_.install_path.set(path);
        return model_.accept_install_path();
    }

    std::string paths()
    {
        return to_utf8(app_.get_specs().at(0).var_value(U"APP_INSTALL_PATH")) + " " +
               to_utf8(app_.get_specs().at(1).var_value(U"APP_INSTALL_PATH"));
    }

    installer_app app_{{named(U"C:\\first\\App"), named(U"C:\\second")}};
    welcome_tab_model model_{app_};
};

TEST_F(welcome_tab_model_test, refuses_a_folder_that_is_not_valid_without_a_word)
{
    const test::log_capture log;
    for (const std::string& path : {std::string("/"), to_utf8(misc::get_windows_folder())}) {
        EXPECT_FALSE(accepts(path)) << path;
        EXPECT_EQ(model_.install_path.get(), path);
    }
    EXPECT_EQ(log.text(), "");
    EXPECT_EQ(paths(), "C:\\first\\App C:\\second");
}

TEST_F(welcome_tab_model_test, gives_every_spec_the_path_in_its_plain_form)
{
    EXPECT_TRUE(accepts("C:/Werkzeuge//f\xC3\xBCr \\\\alle/"));
    EXPECT_EQ(model_.install_path.get(), "C:\\Werkzeuge\\f\xC3\xBCr \\alle\\");
    EXPECT_EQ(paths(), model_.install_path.get() + " " + model_.install_path.get());
    app_.get_specs().emplace_back();
    EXPECT_THROW(static_cast<void>(model_.accept_install_path()), std::invalid_argument);
}

TEST_F(welcome_tab_model_test, browses_from_the_folder_above_the_products_own)
{
    const test::temp_folder folder;
    misc::create_directories(folder / "tools\\App");
    const auto begin = [&](const std::string& path) {
        model_.install_path.set(path);
        return to_utf8(model_.default_browse_path());
    };
    const std::string tools = to_utf8(folder / "tools");
    EXPECT_EQ(begin(tools + "\\App"), tools);
    EXPECT_EQ(begin(tools), tools);
    EXPECT_EQ(begin(tools + "\\app2"), to_utf8(folder.path().root_path()));
    EXPECT_EQ(begin("C:\\Missing\\App"), "C:\\");
    EXPECT_EQ(begin("relative"), "");
    model_.take_picked_folder(folder / "tools");
    EXPECT_EQ(model_.install_path.get(), tools + "\\App");
}

} // namespace
} // namespace nrd::installer::model
