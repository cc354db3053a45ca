#include "support/nui/layout.h"
#include "support/nui/layout_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace {

class layout_fault_test : public testing::Test {
protected:
    std::string faults(const std::string& json)
    {
        folder.write("main.json", json);
        return folder.faultsOf("main.json");
    }

    nui::test::MeasuringEngine engine;
    nui::test::LayoutFolder folder;
};

TEST_F(layout_fault_test, a_file_that_cannot_be_read_is_named_with_the_place_of_the_error)
{
    EXPECT_EQ(folder.faultsOf("missing.json"), "missing.json: the file cannot be opened\n");
    EXPECT_EQ(folder.faultsOf("."), ".: the file cannot be opened\n");
    EXPECT_EQ(faults("{\n  'widgets': [\n    {'\xC3\xA4': 1,}\n  ]\n}"),
              "main.json:3:13: this is no JSON: Missing a name for object member.\n");
    EXPECT_EQ(faults("\xEF\xBB\xBF{}"),
              "main.json:1:1: this is no JSON: The file begins with a byte order mark.\n");
    EXPECT_EQ(faults("{}\n x"), "main.json:2:2: this is no JSON: The document root must not be "
                                "followed by other values.\n");
    EXPECT_EQ(faults("\n []"), "main.json:2:2: a layout file is one JSON object\n");
    EXPECT_EQ(faults("{'config':\n {'resDir': 'x'},\n 'widgets': [{}]}"),
              "main.json:2:2: \"config\" must hold the text \"baseResDir\"; nothing behind it is "
              "read\n");
}

TEST_F(layout_fault_test, includes_are_told_where_they_are_named_and_their_faults_where_they_are)
{
    folder.write("part.json", "{'constants': {'a': 5}}");
    EXPECT_EQ(faults("{'include': ['part.json',\n 'missing.json', 5]}"),
              "part.json:1:21: \"a\" must be a text\n"
              "main.json:2:2: the included file \"missing.json\" cannot be opened\n"
              "main.json:2:18: \"include\" must be a list of texts\n");
}

TEST_F(layout_fault_test, includes_in_a_circle_and_endless_nesting_are_told_and_end)
{
    folder.write("part.json", "{'include': ['main.json'], 'constants': {'ink': '#123456'}}");
    EXPECT_EQ(faults("{'include': ['part.json'], 'widgets': []}"),
              "main.json:1:14: the included file \"part.json\" includes this one\n");
    std::string nested = "{'class': 'Widget'}";
    for (int depth = 0; depth < 250; ++depth)
        nested = "{'class': 'Container', 'children': [" + nested + "]}";
    EXPECT_EQ(faults("{'widgets': [" + nested + "]}"),
              "main.json:1:7214: widgets and menus may not be nested more than 200 deep\n");
    std::string menu = "{'text': 'x'}";
    for (int depth = 0; depth < 200; ++depth)
        menu = "{'children': [" + menu + "]}";
    EXPECT_EQ(faults("{'menus': [" + menu + "]}"),
              "main.json:1:2812: widgets and menus may not be nested more than 200 deep\n");
}

TEST_F(layout_fault_test, references_to_each_other_make_nothing_deeper_than_nesting_can)
{
    std::string chains[3];
    for (int link = 0; link <= 200; ++link) {
        const std::string id = std::to_string(link);
        const std::string last = std::to_string(link - 1);
        const std::string separator = link == 0 ? "" : ",";
        chains[0] +=
            separator + "{'class': 'Container', 'id': '" + id + "', 'children': ['#" + last + "']}";
        chains[1] +=
            separator + "{'id': '" + id + "', 'children': ['" + last + "', '" + last + "']}";
        chains[2] += separator + "{'class': 'Container', 'id': '" + id +
                     "', 'children': [{'template': '" + last + "'}]}";
    }
    const char* const lists[] = {"widgets", "menus", "templates"};
    for (int i = 0; i < 3; ++i) {
        const std::string told = faults("{'" + std::string(lists[i]) + "': [" + chains[i] + "]}");
        EXPECT_THAT(told, testing::EndsWith(" may not be nested more than 200 deep\n"));
        // The first link refers to nothing, and the last one is too deep.
        EXPECT_EQ(std::ranges::count(told, '\n'), i == 1 ? 4 : 2);
    }
}

TEST_F(layout_fault_test, names_that_nobody_knows_are_told)
{
    EXPECT_EQ(faults("{'widgets': [\n"
                     "{'class': 'Wigdet', 'nonsense': 1},\n"
                     "{'id': 'x'},\n"
                     "{'template': 'none', 'text': 1},\n"
                     "{'class': 'Widget', 'overTemplate': 'none'},\n"
                     "{'class': 'Container', 'children': ['#none', 'none']},\n"
                     "{'class': 'Widget', 'width': '5ft', 'gravity': 'Middle'},\n"
                     "{'class': 'Widget', 'color': 'ink', 'backgroundColor': '#12x'},\n"
                     "{'class': 'Screen', 'windowMenu': 'none'}],\n"
                     "'menus': [{'id': 'm', 'key': 'Ctrl+Nokey', 'children': ['none']}]}"),
              "main.json:2:11: there is no class \"Wigdet\"\n"
              "main.json:3:1: a widget needs the key \"class\" or the key \"template\"\n"
              "main.json:4:14: no template \"none\" is known here\n"
              "main.json:5:37: no template \"none\" is known here\n"
              "main.json:6:37: no widget \"#none\" is known here\n"
              "main.json:6:46: no widget \"none\" is known here\n"
              "main.json:7:30: \"width\" cannot be \"5ft\"\n"
              "main.json:7:48: \"gravity\" cannot be \"Middle\"\n"
              "main.json:8:30: \"color\" cannot be \"ink\"\n"
              "main.json:8:56: \"backgroundColor\" cannot be \"#12x\"\n"
              "main.json:9:1: no menu \"none\" is known here\n"
              "main.json:10:30: \"key\" cannot be \"Ctrl+Nokey\"\n"
              "main.json:10:57: no menu \"none\" is known here\n");
}

TEST_F(layout_fault_test, values_of_the_wrong_type_are_told)
{
    EXPECT_EQ(faults("{'themes': {'a': {'b': 1}}, 'templates': {},\n"
                     "'widgets': [{'class': 'Container', 'id': 5, 'width': true,\n"
                     "'padding': {'left': []}, 'form': 'yes', 'alpha': '1',\n"
                     "'children': {}, 'layout': 1, 'border': 5}, {'class': 7}]}"),
              "main.json:1:24: \"b\" must be a text\n"
              "main.json:1:42: \"templates\" must be a list\n"
              "main.json:2:42: \"id\" must be a text\n"
              "main.json:2:54: \"width\" must be a number or a text\n"
              "main.json:3:21: \"left\" must be a number or a text\n"
              "main.json:3:34: \"form\" must be true or false\n"
              "main.json:3:50: \"alpha\" must be a number\n"
              "main.json:4:13: \"children\" must be a list\n"
              "main.json:4:27: \"layout\" must be a text\n"
              "main.json:4:40: \"border\" must be an object\n"
              "main.json:4:54: \"class\" must be a text\n");
}

TEST_F(layout_fault_test, keys_that_nobody_reads_are_told_among_the_other_faults)
{
    EXPECT_EQ(faults("{'$schema': 'x', 'widget': [], 'config': {'baseResDir': '', 'more': 1},\n"
                     "'templates': [{'class': 'Container', 'id': 't', 'children':\n"
                     "  [{'class': 'Widget', 'name': 'a', 'txet': 'x'}]}],\n"
                     "'menus': [{'children': [{'name': 'x', 'clas': 1}]}],\n"
                     "'widgets': [{'template': 't', 'a.width': 5, 'b.width': 5, 'a.id': 'x',\n"
                     "  'padding': {'lefft': 5}, 'border': {'leftColor': '#000000', 'x': 1},\n"
                     "  'height': 1, 'height': 2, 'top': true}]}"),
              "main.json:1:18: nothing reads the key \"widget\"\n"
              "main.json:1:61: nothing reads the key \"more\"\n"
              "main.json:3:37: nothing reads the key \"txet\"\n"
              "main.json:4:39: nothing reads the key \"clas\"\n"
              "main.json:5:45: nothing reads the key \"b.width\"\n"
              "main.json:5:59: nothing reads the key \"a.id\"\n"
              "main.json:6:15: nothing reads the key \"lefft\"\n"
              "main.json:6:63: nothing reads the key \"x\"\n"
              "main.json:7:16: nothing reads the key \"height\"\n"
              "main.json:7:36: \"top\" must be a number or a text\n");
}

TEST_F(layout_fault_test, a_faultless_file_has_none)
{
    EXPECT_EQ(
        faults("{'constants': {'ink': '#12345678'}, 'themes': {'a': {'x': '1'}, 'b': 5},\n"
               "'menus': [{'id': 'm', 'main': true, 'children': [{'text': 'a', 'key': 'F'},\n"
               "  {'text': 'b', 'children': []}]}],\n"
               "'templates': [{'id': 't', 'class': 'Container', 'children': []}],\n"
               "'widgets': [{'id': 's', 'class': 'Screen', 'windowMenu': 'm',\n"
               "  'color': 'ink', 'alpha': 1e-1, 'children': [{'template': 't', 'name': 'x',\n"
               "  'pressedTemplate': '-'}, '#t'], 'left': '5%', 'width': '?'}]}"),
        "");
}

} // namespace
