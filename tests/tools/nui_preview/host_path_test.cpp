#include "tools/nui_preview/host_path.h"

#include "support/nui/layout.h"
#include "support/temp_folder.h"
#include "tools/nui_preview/failure.h"

#include <gtest/gtest.h>

namespace {

using namespace nrd::tools::preview;

TEST(host_path_test, resources_are_the_folder_of_that_name_that_a_file_lies_in_or_its_own)
{
    const nrd::test::temp_folder folder;
    const auto name = [&](const char* below) {
        return absolute_name(nui::test::hostPath(folder / below));
    };
    EXPECT_EQ(resources_of(name("resources/ui/deep/x.json")), name("resources"));
    EXPECT_EQ(resources_of(name("resources/a/resources/x.json")), name("resources/a/resources"));
    EXPECT_EQ(resources_of(name("my_resources/x.json")), name("my_resources"));
    EXPECT_EQ(resources_of(name("resources.json")), name(""));
}

TEST(host_path_test, files_keep_their_bytes_and_names_beyond_ascii)
{
    const nrd::test::temp_folder folder;
    const std::string name = nui::test::hostPath(folder / "gr\xC3\xB6\xC3\x9F"
                                                          "e \xE5\x88\x87.txt");
    const std::string content("a\r\nb\0c\n", 7);
    write_file(name, content);
    EXPECT_EQ(read_file(name), content);
    EXPECT_THROW(static_cast<void>(read_file(name + "x")), failure);
    EXPECT_THROW(write_file(name + "/x", content), failure);
}

} // namespace
