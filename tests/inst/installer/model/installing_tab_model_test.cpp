#include "inst/installer/model/installing_tab_model.h"

#include "inst/installer/model/installer_app.h"
#include "support/log_capture.h"
#include "support/product_package.h"

#include <chrono>
#include <limits>
#include <stdexcept>
#include <thread>

namespace nrd::installer::model {
namespace {

/// Polls as a page does, until the end.
void poll_to_the_end(installing_tab_model& model)
{
    while (!model.update()) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

class installing_tab_model_test : public test::product_package {
protected:
    void report(const std::string& id, const misc::text32& argument)
    {
        answer_ = app_.get_observer().report({id, 0, {argument}});
    }

    installer_app app_{{product("a"), product("b")}}; // two files each
    bool answer_ = false;
};

TEST_F(installing_tab_model_test, shows_the_share_of_the_files_and_the_name_that_was_reported_last)
{
    installing_tab_model model(app_);
    EXPECT_FALSE(model.update());
    EXPECT_EQ(model.progress.get(), 0);
    report("installing", U"one");
    EXPECT_TRUE(answer_);
    EXPECT_FALSE(model.update());
    EXPECT_EQ(model.progress.get(), 0.25F);
    EXPECT_EQ(model.file_name.get(), "one");
    report("installing", U"one"); // the same name again moves nothing
    model.update();
    EXPECT_EQ(model.progress.get(), 0.25F);
    for (const char32_t* const name : {U"two", U"three", U"four"}) {
        report("installing", name);
    }
    model.update();
    EXPECT_EQ(model.progress.get(), 1.25F);
    EXPECT_EQ(model.file_name.get(), "four");
    report("not_running_as_admin", U"");
    EXPECT_TRUE(answer_);
    model.update();
    EXPECT_TRUE(app_.install_succeeded);
}

TEST_F(installing_tab_model_test, notes_a_failed_file_at_each_poll)
{
    for (const char* const id : {"in_file_does_not_exist", "failed_to_copy"}) {
        installing_tab_model model(app_);
        app_.install_succeeded = true;
        report(id, U"x");
        EXPECT_FALSE(answer_);
        const test::log_capture log;
        model.update();
        model.update();
        EXPECT_EQ(log.text(),
                  "File missing or failed to coppy..\nFile missing or failed to coppy..\n");
        EXPECT_FALSE(app_.install_succeeded);
    }
}

TEST_F(installing_tab_model_test, ends_at_one_whatever_was_counted)
{
    installer_app empty({installation::spec()});
    installing_tab_model uncounted(empty);
    empty.get_observer().report({"installing", 0, {U"x"}});
    uncounted.update();
    EXPECT_EQ(uncounted.progress.get(), std::numeric_limits<float>::infinity());

    const test::log_capture log;
    installing_tab_model model(app_);
    EXPECT_EQ(log.lines().back(), "Total files calculated.");
    model.start();
    poll_to_the_end(model);
    EXPECT_EQ(model.progress.get(), 1);
    EXPECT_TRUE(log.contains("Installing install finished."));
    EXPECT_NE(installed().find("b\\b.txt: b\n"), std::string::npos);
    EXPECT_FALSE(model.update()) << "the end comes once";
}

TEST_F(installing_tab_model_test, rethrows_what_the_worker_threw)
{
    installer_app nameless({installation::spec()});
    installing_tab_model model(nameless);
    model.start();
    EXPECT_THROW(poll_to_the_end(model), std::invalid_argument);
}

} // namespace
} // namespace nrd::installer::model
