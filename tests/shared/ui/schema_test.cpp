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

using json_value = nlohmann::ordered_json;
using key_set = std::map<std::string, std::string>;

/// The tests run in the folder of the tests.
json_value schema()
{
    std::ifstream file("../docs/layout.schema.json", std::ios::binary);
    return json_value::parse(file);
}

/// What a property must be, in RecordingReader's words.
std::string kindOf(const json_value& property)
{
    if (property.contains("$ref")) {
        const auto reference = property["$ref"].get<std::string>();
        return reference.substr(reference.rfind('/') + 1);
    }
    if (!property.contains("enum"))
        return property["type"];
    std::string kind = "enum";
    for (const json_value& word : property["enum"])
        kind += ' ' + word.get<std::string>();
    return kind;
}

std::string text(const key_set& keys)
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
    [[nodiscard]] json_value propertiesOf(const json_value& definition) const
    {
        json_value properties = json_value::object();
        if (definition.contains("$ref")) {
            const auto reference = definition["$ref"].get<std::string>();
            properties = propertiesOf(whole.at(json_value::json_pointer(reference.substr(1))));
        }
        if (definition.contains("properties"))
            properties.update(definition["properties"]);
        return properties;
    }

    [[nodiscard]] std::string keysOf(const json_value& definition) const
    {
        key_set keys;
        const json_value properties = propertiesOf(definition);
        for (const auto& [key, property] : properties.items())
            keys.emplace(key, kindOf(property));
        return text(keys);
    }

    /// Values of all kinds that the schema allows, one after the other.
    [[nodiscard]] json_value someValueOf(const std::string& key, const json_value& property,
                                         int turn) const
    {
        const std::string kind = kindOf(property);
        const auto inTurn = [turn](const json_value& values) {
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
            return json_value::array();
        if (kind == "object")
            return someObjectOf(property, turn);
        const json_value& definition = whole["$defs"][kind];
        return definition.contains("examples") ? inTurn(definition["examples"])
                                               : someObjectOf(definition, turn);
    }

    [[nodiscard]] json_value someObjectOf(const json_value& definition, int turn) const
    {
        json_value object = json_value::object();
        const json_value properties = propertiesOf(definition);
        for (const auto& [key, property] : properties.items())
            object[key] = someValueOf(key, property, turn);
        return object;
    }

    nui::test::MeasuringEngine engine;
    json_value whole = schema();
    const json_value& classes = whole["$defs"]["classes"];
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
    const json_value& widget = whole["$defs"]["widget"];
    const json_value& names = widget["properties"]["class"]["anyOf"][0]["enum"];
    ASSERT_EQ(names.size(), classes.size());
    ASSERT_EQ(widget["allOf"].size(), classes.size() + 1);
    EXPECT_EQ(widget["allOf"].back()["if"]["properties"]["class"]["enum"], names);
    std::size_t index = 0;
    for (const auto& [name, definition] : classes.items()) {
        EXPECT_EQ(names[index], name);
        const json_value& rule = widget["allOf"][index];
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

/// There are none beside the file that could be loaded.
void nameNoPictures(json_value& widget)
{
    for (const char* const key :
         {"file", "imageFile", "backImageFile", "candystickImageFile", "candystickBackImageFile"}) {
        if (widget.contains(key)) {
            widget[key] = "";
        }
    }
    if (widget.contains("files")) {
        widget["files"] = json_value::array({""});
    }
}

TEST_F(schema_test, a_file_that_makes_use_of_everything_is_read_to_the_last_key)
{
    // As many rounds as a kind has examples at the most.
    for (int turn = 0; turn < 10; ++turn) {
        json_value file = someObjectOf(whole, turn);
        file["include"] = json_value::array({"part.json"});
        file["constants"]["ink"] = "#000000";
        file["themes"]["first"]["ink"] = "#000000";
        file["menus"].push_back(someObjectOf(whole["$defs"]["menu"], turn));
        file["menus"].back()["id"] = "menu";
        file["menus"].back()["children"].push_back(someObjectOf(whole["$defs"]["menuItem"], turn));
        file["templates"].push_back({{"class", "Widget"}, {"id", "look"}});
        for (const auto& [name, definition] : classes.items()) {
            json_value widget = someObjectOf(definition, turn);
            widget["class"] = name;
            widget["template"] = "look";
            nameNoPictures(widget);
            file["widgets"].push_back(std::move(widget));
        }
        const nui::test::LayoutFolder folder;
        folder.write("part.json", "{}");
        folder.write("all.json", file.dump());
        EXPECT_EQ(folder.faultsOf("all.json"), "") << file.dump();
    }
}

} // namespace
