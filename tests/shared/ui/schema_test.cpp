#include "nui/menus/popup_menu.h"
#include "nui/reader/widget_registry.h"
#include "nui/widgets/widget.h"
#include "shared/ui/bindable_classes.h"
#include "support/nui/layout.h"
#include "support/nui/layout_folder.h"
#include "support/nui/recording_reader.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <fstream>
#include <map>
#include <string>

namespace {

using Json = nlohmann::ordered_json;
using Keys = std::map<std::string, std::string>;

/// The tests run in the folder of the tests.
Json schema()
{
    std::ifstream file("../docs/layout.schema.json", std::ios::binary);
    return Json::parse(file);
}

/// What a property must be, in RecordingReader's words.
std::string kindOf(const Json& property)
{
    if (property.contains("$ref")) {
        const auto reference = property["$ref"].get<std::string>();
        return reference.substr(reference.rfind('/') + 1);
    }
    if (!property.contains("enum"))
        return property["type"];
    std::string kind = "enum";
    for (const Json& word : property["enum"])
        kind += ' ' + word.get<std::string>();
    return kind;
}

std::string text(const Keys& keys)
{
    std::string lines;
    for (const auto& [key, kind] : keys)
        lines += key + ": " + kind + '\n';
    return lines;
}

/// Of the toolkit's classes and of those that models are bound to.
class schema_test : public testing::Test {
protected:
    schema_test() { nrd::shared::ui::registerBindableClasses(); }

    /// All properties, those of what the definition extends included.
    [[nodiscard]] Json propertiesOf(const Json& definition) const
    {
        Json properties = Json::object();
        if (definition.contains("$ref")) {
            const auto reference = definition["$ref"].get<std::string>();
            properties = propertiesOf(whole.at(Json::json_pointer(reference.substr(1))));
        }
        if (definition.contains("properties"))
            properties.update(definition["properties"]);
        return properties;
    }

    [[nodiscard]] std::string keysOf(const Json& definition) const
    {
        Keys keys;
        const Json properties = propertiesOf(definition);
        for (const auto& [key, property] : properties.items())
            keys.emplace(key, kindOf(property));
        return text(keys);
    }

    /// Values of all kinds that the schema allows, one after the other.
    [[nodiscard]] Json someValueOf(const std::string& key, const Json& property, int turn) const
    {
        const std::string kind = kindOf(property);
        const auto inTurn = [turn](const Json& values) {
            return values[static_cast<std::size_t>(turn) % values.size()];
        };
        if (property.contains("enum"))
            return inTurn(property["enum"]);
        if (property.contains("examples"))
            return inTurn(property["examples"]);
        if (kind == "string")
            return key == "windowMenu" ? "menu" : key;
        if (kind == "boolean")
            return turn % 2 == 0;
        if (kind == "number")
            return turn;
        if (kind == "array")
            return Json::array();
        if (kind == "object")
            return someObjectOf(property, turn);
        const Json& definition = whole["$defs"][kind];
        return definition.contains("examples") ? inTurn(definition["examples"])
                                               : someObjectOf(definition, turn);
    }

    [[nodiscard]] Json someObjectOf(const Json& definition, int turn) const
    {
        Json object = Json::object();
        const Json properties = propertiesOf(definition);
        for (const auto& [key, property] : properties.items())
            object[key] = someValueOf(key, property, turn);
        return object;
    }

    nui::test::MeasuringEngine engine;
    Json whole = schema();
    const Json& classes = whole["$defs"]["classes"];
};

TEST_F(schema_test, each_class_has_the_keys_that_it_reads_and_no_others)
{
    for (const auto& [name, definition] : classes.items()) {
        const nui::WidgetPtr widget = nui::createWidget(name.c_str());
        ASSERT_TRUE(widget) << name;
        EXPECT_EQ(widget->className(), name);
        nui::test::RecordingReader reader;
        widget->read(reader);
        EXPECT_EQ(keysOf(definition), text(reader.keys())) << name;
    }
}

TEST_F(schema_test, each_class_is_known_wherever_the_schema_lists_them)
{
    const Json& widget = whole["$defs"]["widget"];
    const Json& names = widget["properties"]["class"]["anyOf"][0]["enum"];
    ASSERT_EQ(names.size(), classes.size());
    ASSERT_EQ(widget["allOf"].size(), classes.size() + 1);
    EXPECT_EQ(widget["allOf"].back()["if"]["properties"]["class"]["enum"], names);
    std::size_t index = 0;
    for (const auto& [name, definition] : classes.items()) {
        EXPECT_EQ(names[index], name);
        const Json& rule = widget["allOf"][index];
        EXPECT_EQ(rule["if"]["properties"]["class"]["const"], name);
        EXPECT_EQ(rule["then"]["$ref"], "#/$defs/classes/" + name);
        ++index;
    }
}

TEST_F(schema_test, menus_and_their_items_have_the_keys_that_they_read)
{
    nui::test::RecordingReader item;
    std::make_shared<nui::PopupMenuItem>()->read(item);
    EXPECT_EQ(keysOf(whole["$defs"]["menuItem"]), text(item.keys()));
    nui::test::RecordingReader menu;
    std::make_shared<nui::PopupMenu>(menu)->read(menu);
    EXPECT_EQ(keysOf(whole["$defs"]["menu"]), text(menu.keys()));
}

TEST_F(schema_test, a_file_that_makes_use_of_everything_is_read_to_the_last_key)
{
    // As many rounds as a kind has examples at the most.
    for (int turn = 0; turn < 10; ++turn) {
        Json file = someObjectOf(whole, turn);
        file["include"] = Json::array({"part.json"});
        file["constants"]["ink"] = "#000000";
        file["themes"]["first"]["ink"] = "#000000";
        file["menus"].push_back(someObjectOf(whole["$defs"]["menu"], turn));
        file["menus"].back()["id"] = "menu";
        file["menus"].back()["children"].push_back(someObjectOf(whole["$defs"]["menuItem"], turn));
        file["templates"].push_back({{"class", "Widget"}, {"id", "look"}});
        for (const auto& [name, definition] : classes.items()) {
            Json widget = someObjectOf(definition, turn);
            widget["class"] = name;
            widget["template"] = "look";
            file["widgets"].push_back(std::move(widget));
        }
        const nui::test::LayoutFolder folder;
        folder.write("part.json", "{}");
        folder.write("all.json", file.dump());
        EXPECT_EQ(folder.faultsOf("all.json"), "") << file.dump();
    }
}

} // namespace
