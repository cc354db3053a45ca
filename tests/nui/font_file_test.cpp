#include "nui/text/font_file.h"

#include "support/file_content.h"
#include "support/nui/font_files.h"
#include "support/nui/layout.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

using Tables = std::vector<std::pair<std::string, std::string>>;

void addNumber(std::string& bytes, std::size_t value, std::size_t size)
{
    for (std::size_t byte = size; byte-- > 0;)
        bytes += static_cast<char>(value >> 8U * byte & 0xFFU);
}

/// A font file with these tables, as it stands at a place in a larger one.
std::string fontFile(const Tables& tables, std::size_t place)
{
    std::string directory;
    std::string content;
    addNumber(directory, 0x00010000, 4);
    addNumber(directory, tables.size(), 2);
    addNumber(directory, 0, 6);
    const std::size_t start = place + 12 + 16 * tables.size();
    for (const auto& [tag, bytes] : tables) {
        directory += tag;
        addNumber(directory, 0, 4);
        addNumber(directory, start + content.size(), 4);
        addNumber(directory, bytes.size(), 4);
        content += bytes;
        content.resize((content.size() + 3) / 4 * 4);
    }
    return directory + content;
}

const Tables firstFace = {{"cmap", "abcd"}, {"glyf", "xyz"}};
const Tables secondFace = {{"head", "12345"}, {"cmap", "q"}};

std::string collection()
{
    constexpr std::size_t Header = 20;
    const std::string first = fontFile(firstFace, Header);
    std::string bytes = "ttcf";
    addNumber(bytes, 0x00010000, 4);
    addNumber(bytes, 2, 4);
    addNumber(bytes, Header, 4);
    addNumber(bytes, Header + first.size(), 4);
    return bytes + first + fontFile(secondFace, Header + first.size());
}

TEST(font_file, a_face_of_a_collection_is_a_file_of_its_own)
{
    EXPECT_EQ(nui::faceOfCollection(collection(), 0), fontFile(firstFace, 0));
    EXPECT_EQ(nui::faceOfCollection(collection(), 1), fontFile(secondFace, 0));
    EXPECT_EQ(nui::faceOfCollection(collection(), 2), "");
    EXPECT_EQ(nui::faceOfCollection(fontFile(firstFace, 0), 0), "");
}

TEST(font_file, a_damaged_collection_has_no_faces)
{
    const std::string whole = collection();
    for (std::size_t size = 0; size + 3 < whole.size(); ++size)
        EXPECT_EQ(nui::faceOfCollection(whole.substr(0, size), 1), "") << size;
    // An offset far outside.
    std::string beyond = whole;
    beyond[16] = '\xFF';
    EXPECT_EQ(nui::faceOfCollection(beyond, 1), "");
}

TEST(font_file, a_path_may_name_a_face)
{
    const nrd::test::temp_folder folder;
    nrd::test::write_file(folder / "two.ttc", collection());
    const std::string path = nui::test::hostPath(folder / "two.ttc");
    EXPECT_EQ(nui::fontFileContent(path), collection());
    EXPECT_EQ(nui::fontFileContent(path + "?0"), collection());
    EXPECT_EQ(nui::fontFileContent(path + "?1"), fontFile(secondFace, 0));
    EXPECT_EQ(nui::fontFileContent(path + "?2"), "");
    EXPECT_EQ(nui::fontFileContent(path + "?one"), "");
    EXPECT_EQ(nui::fontFileContent(path + "?99999999999999999999"), "");
    EXPECT_EQ(nui::fontFileContent(nui::test::latinFontFile() + "?1"), "");
    EXPECT_FALSE(nui::fontFileContent(nui::test::latinFontFile()).empty());
}

} // namespace
