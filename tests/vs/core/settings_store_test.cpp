#include "vs/core/settings_store.h"

#include "misc/command_line.h"
#include "misc/file_system.h"
#include "support/file_content.h"
#include "support/folder_text.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

namespace nrd::vs {
namespace {

const std::string product = "Tavrolen Corporation\\Velmora Studio 5\\";
const std::string shared = "Tavrolen Corporation\\shared\\";

class stored_settings : public testing::Test {
protected:
    void write(const std::string& name, std::string_view content)
    {
        test::write_file(folder_ / name, content);
    }

    std::string keys(bool (settings_store::*load)(settings_model&) const)
    {
        settings_model model;
        std::string text = (settings_store(folder_.path()).*load)(model) ? "read:" : "nothing:";
        for (const auto& [key, value] : model.option.user_conds) {
            text += " " + key + "=" + value.dump();
        }
        for (const auto& [key, value] : model.option.default_conditions_map) {
            text += " default " + key;
        }
        return text;
    }

    std::string cutters()
    {
        std::vector<std::string> list;
        std::string text =
            settings_store(folder_.path()).load_cutter_models(list) ? "read:" : "nothing:";
        for (const std::string& each : list) {
            text += " " + each;
        }
        return text;
    }

    test::temp_folder folder_;
};

TEST_F(stored_settings, are_read_from_the_folders_of_the_product_and_of_its_company)
{
    write(product + "settings_vs.json",
          R"({"general": {"a": 1}, "option": {"user_conds": {"b": {"force": 3}, "a": 2}}})");
    write(product + "settings7.json",
          R"({"option": {"default_conditions_map": {"c": []}, "other": 1}})");
    write(shared + "cutters.json",
          R"({"x": 1, "cutters": [{"model": "z"}, {"name": "-"}, {"model": 1}, 7,
              {"model": "a", "more": 2}]})");
    EXPECT_EQ(keys(&settings_store::load_settings_vs), "read: a=2 b={\"force\":3}");
    EXPECT_EQ(keys(&settings_store::load_settings7), "read: default c");
    EXPECT_EQ(cutters(), "read: z a");
}

TEST_F(stored_settings, that_are_missing_or_empty_leave_things_as_they_are)
{
    for (const char* const content : {"", "null", "{}", "[]"}) {
        write(product + "settings_vs.json", content);
        write(shared + "cutters.json", content);
        EXPECT_EQ(keys(&settings_store::load_settings_vs), "nothing:") << content;
        EXPECT_EQ(cutters(), "nothing:") << content;
    }
    EXPECT_EQ(keys(&settings_store::load_settings7), "nothing:");
    // Data of another shape than the applications write.
    for (const char* const content :
         {R"({"option": [1]})", R"({"option": {"user_conds": 3}})", "5"}) {
        write(product + "settings7.json", content);
        write(shared + "cutters.json", content);
        EXPECT_EQ(keys(&settings_store::load_settings7), "read:") << content;
        EXPECT_EQ(cutters(), "nothing:") << content;
    }
}

TEST_F(stored_settings, with_broken_json_throw)
{
    write(product + "settings_vs.json", "{\"option\": ");
    EXPECT_THROW(keys(&settings_store::load_settings_vs), nlohmann::json::parse_error);
}

TEST_F(stored_settings, lie_in_the_users_folder_and_reading_makes_the_folders)
{
    misc::prefs_override() = folder_ / "prefs";
    settings_model model;
    EXPECT_FALSE(settings_store().load_settings_vs(model));
    EXPECT_EQ(test::folder_text(folder_.path()),
              "prefs\\\nprefs\\Tavrolen Corporation\\\n"
              "prefs\\Tavrolen Corporation\\Velmora Studio 5\\\n");
    write("prefs\\" + product + "settings_vs.json", R"({"option": {"user_conds": {"a": 1}}})");
    EXPECT_TRUE(settings_store().load_settings_vs(model));
    misc::prefs_override().reset();
}

} // namespace
} // namespace nrd::vs
