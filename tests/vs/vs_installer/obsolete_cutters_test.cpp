#include "vs/vs_installer/obsolete_cutters.h"

#include "misc/command_line.h"
#include "support/file_content.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace nrd::vs_installer {
namespace {

TEST(obsolete_cutters, are_known_by_the_first_six_characters_of_their_model)
{
    for (const char* const model :
         {"QX1180", "QX2400", "QX2410-75", "QX2410 Gold", "ZT5000", "ZT5000-60 gold"}) {
        EXPECT_TRUE(is_obsolete_model(model)) << model;
    }
    for (const char* const model : {"", "QX24", "QX118", "qx1180", " QX1180", "QX2411",
                                    "ZT5000 Gold", "ZT5000-60 Golden", "ZT500"}) {
        EXPECT_FALSE(is_obsolete_model(model)) << model;
    }
}

TEST(obsolete_cutters, are_found_in_each_of_the_stored_settings)
{
    const std::string company = "Tavrolen Corporation\\";
    const std::vector<std::pair<std::string, std::string>> sources = {
        {company + "Velmora Studio 5\\settings_vs.json", R"({"option": {"user_conds": {"#": 1}}})"},
        {company + "Velmora Studio 5\\settings_vs.json",
         R"({"option": {"default_conditions_map": {"a": 1, "#": 1}}})"},
        {company + "Velmora Studio 5\\settings7.json", R"({"option": {"user_conds": {"#": 1}}})"},
        {company + "shared\\cutters.json", R"({"cutters": [{"model": "a"}, {"model": "#"}]})"},
    };
    for (const auto& [file, content] : sources) {
        const test::temp_folder folder;
        misc::prefs_override() = folder.path();
        EXPECT_FALSE(has_obsolete_cutter()) << file;
        for (const std::string model : {"ZT5000 Gold", "ZT5000"}) {
            std::string text = content;
            test::write_file(folder / file, text.replace(text.find('#'), 1, model));
            EXPECT_EQ(has_obsolete_cutter(), model == "ZT5000") << file << " " << content;
        }
        misc::prefs_override().reset();
    }
}

} // namespace
} // namespace nrd::vs_installer
