#include "nui/reader/nui_file_reader.h"

#include "nui/reader/layout_loader.h"
#include "nui/widgets/widget.h"
#include "support/nui/layout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <iomanip>
#include <sstream>
#include <string>
#include <vector>

namespace {

using nui::Size;

/// A reader on one object, whose quotation marks are single ones.
class Source {
public:
    explicit Source(std::string json)
    {
        std::replace(json.begin(), json.end(), '\'', '"');
        document.Parse(json.c_str());
    }

    rapidjson::Document document;
    nui::WidgetPack pack;
    nui::LayoutLoader loader{"none"};
    nui::NuiFileReader reader{pack, loader, document, nullptr};
};

class reader_test : public testing::Test {
protected:
    nui::test::MeasuringEngine engine;
};

TEST_F(reader_test, a_size_is_a_number_and_a_unit)
{
    struct {
        const char* json;
        const char* read;
    } const cases[] = {
        {"12", "12 mode 0"},          {"1.5", "1.5 mode 0"},        {"-3", "-3 mode 0"},
        {"'12'", "12 mode 0"},        {"'12px'", "12 mode 0"},      {"'2.5pt'", "2.5 mode 1"},
        {"'3sp'", "3 mode 2"},        {"'50%'", "0.5 mode 3"},      {"'25%s'", "0.25 mode 4"},
        {"'?'", "1 mode 5"},          {"'2?'", "2 mode 5"},         {"'content'", "1 mode 6"},
        {"'3content'", "3 mode 6"},   {"'small'", "1 mode 7"},      {"'medium'", "1 mode 8"},
        {"'large'", "1 mode 9"},      {"''", "1 mode 0"},           {"'.px'", "0 mode 0"},
        {"'abc'", "1 mode 8, false"}, {"'7Px'", "7 mode 8, false"}, {"'5 px'", "5 mode 8, false"},
        {"'-5'", "1 mode 8, false"},  {"true", "77 mode 8, false"}, {"[1]", "77 mode 8, false"},
    };
    for (const auto& [json, read] : cases) {
        Source source("{'width': " + std::string(json) + "}");
        Size size{77, nui::Medium};
        const bool found = source.reader.readSize(size, "width");
        std::ostringstream text;
        text << size.value << " mode " << size.mode << (found ? "" : ", false");
        EXPECT_EQ(text.str(), read) << json;
    }
}

TEST_F(reader_test, a_limit_is_resolved_at_once_and_a_percentage_of_nothing_is_none)
{
    Source source("{'a': '50%', 'b': '10.5pt', 'c': 'abc'}");
    float limit = 7;
    EXPECT_TRUE(source.reader.readSizeValue(limit, "a"));
    EXPECT_EQ(limit, 0);
    EXPECT_TRUE(source.reader.readSizeValue(limit, "b"));
    EXPECT_EQ(limit, 21);
    EXPECT_FALSE(source.reader.readSizeValue(limit, "c"));
    EXPECT_FALSE(source.reader.readSizeValue(limit, "d"));
    EXPECT_EQ(limit, 21);
}

TEST_F(reader_test, a_colour_is_hexadecimal_or_a_name_and_never_transparent)
{
    struct {
        const char* json;
        const char* read; ///< alpha, blue, green, red
    } const cases[] = {
        {"{'c': '#12345678', 'a': 0.5}", "7f785634"},
        {"{'c': '#12345678'}", "11785634"},
        {"{'c': '#ffffff', 'a': 0}", "ffffffff"},
        {"{'a': 0}", "00040302"},
        {"{'a': 0.999}", "fe040302"},
        {"{'a': 7}", "ff040302"},
        {"{}", "11040302"},
        {"{'c': '#aBcDeF'}", "11efcdab"},
        {"{'c': '#fff'}", "11ff0f00"},
        {"{'c': '#11zz22'}", "11110000"},
        {"{'c': 'ink'}", "110000ff"},
        {"{'c': 'both'}", "11010101"},
        {"{'c': 'alias', 'a': 1}", "ff0000ff"},
        {"{'c': 'paper'}", "11302010"},
        {"{'c': 'unknown', 'a': 0}", "00040302, false"},
        {"{'c': ''}", "11040302, false"},
        {"{'c': 5}", "11040302"},
    };
    for (const auto& [json, read] : cases) {
        Source source(json);
        source.pack.constants = {{"ink", "#ff0000"}, {"alias", "alias2"}, {"both", "#010101"}};
        source.pack.theme = {{"alias2", "ink"}, {"paper", "#102030"}, {"both", "#020202"}};
        nui::Color color = 0x11040302;
        const bool known = source.reader.readColor(color, "c", "a");
        std::ostringstream text;
        text << std::hex << std::setw(8) << std::setfill('0') << color << (known ? "" : ", false");
        EXPECT_EQ(text.str(), read) << json;
    }
    Source source("{}");
    nui::Color color = 0x11040302;
    EXPECT_TRUE(source.reader.readColor(color, "c", nullptr));
    EXPECT_EQ(color, 0xFF040302U);
}

TEST_F(reader_test, numbers_that_are_no_small_whole_ones_give_the_bits_they_are_stored_in)
{
    struct {
        const char* json;
        std::int64_t number;
    } const cases[] = {
        {"5", 5},          {"-5", -5}, {"4294967295", -1},
        {"4294967297", 1}, {"1.5", 0}, {"0.1", -1717986918},
    };
    for (const auto& [json, number] : cases) {
        Source source("{'n': " + std::string(json) + "}");
        std::int32_t value = 77;
        EXPECT_TRUE(source.reader.readInt(value, "n")) << json;
        EXPECT_EQ(value, number) << json;
        std::uint32_t bits = 77;
        EXPECT_TRUE(source.reader.readUnsigned(bits, "n"));
        EXPECT_EQ(bits, static_cast<std::uint32_t>(number));
    }
}

TEST_F(reader_test, a_value_of_another_type_leaves_the_output_alone)
{
    Source source("{'v': {}, 'n': 1, 'list': ['1', 2]}");
    std::string text = "kept";
    float number = 7;
    std::int32_t integer = 7;
    std::uint32_t index = 7;
    nui::Point point{7, 7};
    std::vector<float> floats{7};
    std::vector<std::string> texts{"kept"};
    const char* const table[] = {"one", nullptr};
    EXPECT_FALSE(source.reader.readString(text, "v", true));
    EXPECT_FALSE(source.reader.readFloat(number, "v"));
    EXPECT_FALSE(source.reader.readInt(integer, "v"));
    EXPECT_FALSE(source.reader.readEnum(index, "v", table));
    EXPECT_FALSE(source.reader.readPoint(point, "v"));
    EXPECT_FALSE(source.reader.readPoint(point, "list"));
    EXPECT_FALSE(source.reader.readPointOrAuto(point, "n"));
    EXPECT_FALSE(source.reader.readFloatList(floats, "v"));
    EXPECT_FALSE(source.reader.readStringList(texts, "n"));
    EXPECT_EQ(text + texts.front(), "keptkept");
    EXPECT_EQ(number + point.x + point.y + floats.front(), 28);
    EXPECT_EQ(index + static_cast<std::uint32_t>(integer), 14U);

    // A boolean is true for one value, and false for every other that is there.
    bool flag = true;
    EXPECT_TRUE(source.reader.readBool(flag, "n"));
    EXPECT_FALSE(flag);
    EXPECT_FALSE(source.reader.readBool(flag, "absent"));
}

TEST_F(reader_test, names_points_and_lists_are_read)
{
    Source source(
        "{'e': 'two', 'empty': '', 'E': 'Two', 'p': [1, 2.5, 3], 'a': 'auto', 'b': 'Auto',"
        " 'floats': [1, 2.5, 'x'], 'texts': ['a', 5, 'b']}");
    const char* const table[] = {"one", "", "two", nullptr};
    std::uint32_t index = 7;
    EXPECT_FALSE(source.reader.readEnum(index, "empty", table));
    EXPECT_FALSE(source.reader.readEnum(index, "E", table));
    EXPECT_EQ(index, 7U);
    EXPECT_TRUE(source.reader.readEnum(index, "e", table));
    EXPECT_EQ(index, 2U);

    nui::Point point;
    EXPECT_TRUE(source.reader.readPoint(point, "p"));
    EXPECT_EQ(point.x, 1);
    EXPECT_EQ(point.y, 2.5F);
    EXPECT_FALSE(source.reader.readPointOrAuto(point, "b"));
    EXPECT_TRUE(source.reader.readPointOrAuto(point, "a"));
    EXPECT_EQ(point.x, 3.4028235e38F);
    EXPECT_EQ(point.y, 3.4028235e38F);

    std::vector<float> floats{7};
    EXPECT_TRUE(source.reader.readFloatList(floats, "floats"));
    EXPECT_EQ(floats, (std::vector<float>{1, 2.5F}));
    std::vector<std::string> texts{"x"};
    EXPECT_TRUE(source.reader.readStringList(texts, "texts"));
    EXPECT_EQ(texts, (std::vector<std::string>{"a", "b"}));
}

TEST_F(reader_test, under_a_prefix_only_its_own_keys_are_there)
{
    Source source("{'name': 'plain', 'text': 'plain', 'width': 1, 'part.name': 'own',"
                  " 'part.text': 'mine', 'part.width': 9, 'part.padding': {'left': 3}}");
    source.reader.setPrefix("part.");
    std::string text = "kept";
    EXPECT_FALSE(source.reader.readString(text, "name", false));
    EXPECT_EQ(text, "kept");
    EXPECT_TRUE(source.reader.readString(text, "text", true));
    EXPECT_EQ(text, "mine");
    Size size;
    EXPECT_TRUE(source.reader.readSize(size, "width"));
    EXPECT_EQ(size.value, 9);
    nui::Edges edges;
    EXPECT_TRUE(source.reader.readEdges(edges, "padding"));
    EXPECT_EQ(edges.left, 3);
    source.reader.setPrefix({});
    EXPECT_TRUE(source.reader.readString(text, "name", false));
    EXPECT_EQ(text, "plain");
    EXPECT_FALSE(source.reader.has("part"));
}

TEST_F(reader_test, edges_and_borders_are_read_here_or_in_an_object)
{
    Source source("{'left': '5%', 'top': 2, 'padding': {'right': 3, 'bottom': '4pt'},"
                  " 'border': {'leftColor': '#000001', 'topAlpha': 0.2, 'rightColor': 'nobody'}}");
    nui::Edges margin;
    EXPECT_TRUE(source.reader.readEdgesHere(margin));
    EXPECT_EQ(margin.left, 0.05F);
    EXPECT_EQ(margin.leftMode, nui::Percent);
    EXPECT_EQ(margin.top, 2);
    EXPECT_EQ(margin.right, 0);
    nui::Edges padding;
    EXPECT_TRUE(source.reader.readEdges(padding, "padding"));
    EXPECT_EQ(padding.right, 3);
    EXPECT_EQ(padding.bottomMode, nui::Pt);
    EXPECT_EQ(padding.left, 0);
    EXPECT_FALSE(source.reader.readEdges(padding, "top"));

    nui::BorderColors border{0x80000000, 0x81000000, 0x82000000, 0x83000000};
    source.reader.readBorder(border, "border");
    EXPECT_EQ(border.left, 0x83010000U);
    EXPECT_EQ(border.top, 0x33000000U);
    EXPECT_EQ(border.right, 0x81000000U);
    EXPECT_EQ(border.bottom, 0x82000000U);
}

TEST_F(reader_test, references_name_widgets_of_the_pack)
{
    Source source("{'none': '', 'known': 'box', 'back': '-', 'unknown': '-x', 'template': 'box',"
                  " 'items': ['#box', 'box', {}]}");
    const auto box = std::make_shared<nui::Widget>();
    source.pack.widgets = {{"box", box}, {"-", box}};
    nui::WidgetPtr found = box;
    bool isBack = false;
    EXPECT_TRUE(source.reader.readTemplateRef(found, "none", &isBack));
    EXPECT_EQ(found, nullptr);
    EXPECT_TRUE(source.reader.readTemplateRef(found, "known", &isBack));
    EXPECT_EQ(found, box);
    EXPECT_FALSE(isBack);
    EXPECT_FALSE(source.reader.readTemplateRef(found, "absent", &isBack));
    EXPECT_FALSE(source.reader.readTemplateRef(found, "unknown", &isBack));
    EXPECT_TRUE(isBack);
    found = nullptr;
    EXPECT_TRUE(source.reader.readTemplateRef(found, "back", nullptr));
    EXPECT_EQ(found, box);
    EXPECT_EQ(source.reader.templateWidget(), box);

    auto item = source.reader.firstIn("items");
    EXPECT_EQ(item->widgetRefHere(), box);
    item = item->next();
    EXPECT_EQ(item->widgetRefHere(), nullptr);
    EXPECT_FALSE(item->has("class"));
    item = item->next();
    EXPECT_EQ(item->widgetRefHere(), nullptr);
    EXPECT_EQ(item->next(), nullptr);
    EXPECT_EQ(source.reader.firstIn("known"), nullptr);
    EXPECT_EQ(source.reader.children(), nullptr);
}

} // namespace
