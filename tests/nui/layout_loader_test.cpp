#include "nui/reader/layout_loader.h"

#include "nui/engine/engine.h"
#include "nui/reader/widget_registry.h"
#include "nui/widgets/container.h"
#include "nui/widgets/text_label.h"
#include "support/nui/layout.h"
#include "support/nui/layout_folder.h"

#include <gtest/gtest.h>

#include <iomanip>
#include <memory>
#include <sstream>
#include <string>

namespace {

using nui::Container;
using nui::LayoutLoader;
using nui::WidgetMap;
using nui::WidgetPtr;

/// Class, name and serial of a tree, each child in brackets behind its parent.
std::string treeText(const WidgetPtr& widget)
{
    std::string text =
        std::string(widget->className()) + ':' + widget->name + std::to_string(widget->serial);
    if (const auto container = std::dynamic_pointer_cast<Container>(widget)) {
        for (const WidgetPtr& child : container->children())
            text += '(' + treeText(child) + ')';
    }
    return text;
}

std::string mapText(const WidgetMap& widgets)
{
    std::string text;
    for (const auto& [id, widget] : widgets)
        text += id + "=" + treeText(widget) + " ";
    return text;
}

class layout_loader_test : public testing::Test {
protected:
    /// The map of a file with these members of its root object.
    std::string loaded(const std::string& members)
    {
        folder.write("main.json", '{' + members + '}');
        return mapText(LayoutLoader("main.json").load());
    }

    /// The widget with the id "w".
    WidgetPtr built(const std::string& members)
    {
        folder.write("main.json", '{' + members + '}');
        widgets = LayoutLoader("main.json").load();
        return widgets.at("w");
    }

    std::string colorOf(const std::string& members)
    {
        std::ostringstream text;
        text << std::hex << std::setw(6) << std::setfill('0')
             << (built(members + ", 'widgets': [{'id': 'w', 'class': 'Widget', 'color': 'c'}]")
                     ->color &
                 0xFFFFFFU);
        return text.str();
    }

    nui::test::MeasuringEngine engine;
    nui::test::LayoutFolder folder;
    WidgetMap widgets;
};

TEST_F(layout_loader_test, a_tree_is_built_inside_out_and_ids_make_the_map)
{
    EXPECT_EQ(loaded("'widgets': [{'class': 'container', 'id': 'top', 'name': 't', 'children': ["
                     "{'class': 'Widget', 'id': 'in', 'name': 'a'}, {'class': 'NoSuchClass'},"
                     "{'class': 'Container', 'name': 'b', 'children': [{'class': 'Image'}]}]},"
                     "{'class': 'Widget', 'name': 'lost'}]"),
              "-=Container:t4(Widget:a1)(Container:b3(Image:2)) in=Widget:a1 "
              "top=Container:t4(Widget:a1)(Container:b3(Image:2)) ");
}

TEST_F(layout_loader_test, what_is_no_layout_file_gives_nothing_and_tells_nobody)
{
    for (const char* const json : {"", "[]", "5", "{", "{} {}", "{} x", "{'widgets': [}", "{,}"}) {
        folder.write("main.json", json);
        nui::IncludeCache cache;
        WidgetMap target;
        EXPECT_FALSE(LayoutLoader("main.json").loadInto(cache, target)) << json;
        EXPECT_TRUE(target.empty());
    }
    EXPECT_TRUE(LayoutLoader("missing.json").load().empty());
    // Deeper than any stack.
    folder.write("main.json", "{'widgets': " + std::string(1000000, '['));
    EXPECT_TRUE(LayoutLoader("main.json").load().empty());

    // Where the files are read in blocks, a token may end in the next one.
    for (std::size_t size = 2030; size < 2060; ++size) {
        folder.write("main.json",
                     "{'constants': {'" + std::string(size, 'k') + "': 'value'}, 'widgets': []}");
        LayoutLoader loader("main.json");
        loader.load();
        EXPECT_EQ(loader.pack().constants[std::string(size, 'k')], "value");
    }
}

TEST_F(layout_loader_test, members_of_the_wrong_type_are_passed_over)
{
    EXPECT_EQ(loaded("'include': 'x', 'config': 5, 'constants': ['a'], 'themes': 1, 'menus': {},"
                     "'templates': 'x', 'widgets': [1, null, 'x', {'id': 'w', 'class': 'Widget'}]"),
              "-=Widget:1 w=Widget:1 ");
}

TEST_F(layout_loader_test, a_files_own_texts_beat_the_includes_and_the_first_include_the_second)
{
    folder.write("one.json", "{'constants': {'c': '#000001', 'd': '#000001'}}");
    folder.write("two.json", "{'constants': {'c': '#000002', 'd': '#000002', 'e': '#000002'},"
                             " 'widgets': [{'id': 'v', 'class': 'Widget', 'name': 'two'}]}");
    const std::string includes =
        "'include': [' one.json  ', 'missing.json', 5, 'two.json', 'broken.json'],";
    folder.write("broken.json", "{'constants': {'e': '#000003'}");
    EXPECT_EQ(colorOf(includes + "'constants': {'c': '  #000004 ', 'f': 7}"), "040000");
    EXPECT_EQ(colorOf(includes + "'constants': {'c': 'd'}"), "010000");
    EXPECT_EQ(colorOf(includes + "'constants': {'c': 'e'}"), "020000");
    EXPECT_EQ(widgets.at("v")->name, "two");
}

TEST_F(layout_loader_test, an_include_is_read_once_for_all_who_name_it)
{
    folder.write("shared.json", "{'widgets': [{'id': 's', 'class': 'Widget'}]}");
    folder.write("left.json", "{'include': ['shared.json']}");
    folder.write("right.json", "{'include': ['shared.json'],"
                               " 'widgets': [{'id': 'r', 'class': 'Widget'}]}");
    EXPECT_EQ(loaded("'include': ['left.json', 'right.json', 'shared.json']"),
              "-=Widget:1 r=Widget:2 s=Widget:1 ");
}

TEST_F(layout_loader_test, the_first_theme_is_taken_unless_one_is_chosen)
{
    const std::string themes = "'themes': {'light': {'c': ' #000001 ', 'x': 1},"
                               " 'dark': {'c': '#000002'}}";
    EXPECT_EQ(colorOf(themes), "010000");
    EXPECT_EQ(colorOf(themes + ", 'constants': {'c': '#000003'}"), "030000");
    LayoutLoader dark("main.json");
    dark.setTheme("dark");
    dark.load();
    EXPECT_EQ(dark.pack().theme["c"], "#000002");
    LayoutLoader unknown("main.json");
    unknown.setTheme("Dark");
    unknown.load();
    EXPECT_TRUE(unknown.pack().theme.empty());
}

TEST_F(layout_loader_test, a_config_names_the_resources_and_without_them_ends_the_file)
{
    loaded("'config': {'baseResDir': 'pictures'}");
    EXPECT_EQ(nui::engine().resourceDirectory, folder.path() + "pictures");
    loaded("'config': {'baseResDir': '/pictures'}");
    EXPECT_EQ(nui::engine().resourceDirectory, "/pictures");

    folder.write("part.json", "{'widgets': [{'id': 'p', 'class': 'Widget'}]}");
    const std::string rest = ", 'widgets': [{'id': 'w', 'class': 'Widget'}]";
    EXPECT_EQ(loaded("'include': ['part.json'], 'config': {}" + rest), "-=Widget:1 p=Widget:1 ");
    EXPECT_EQ(loaded("'config': {'baseResDir': 5}" + rest), "");
    EXPECT_EQ(nui::engine().resourceDirectory, "/pictures");
}

TEST_F(layout_loader_test, templates_need_an_id_and_a_later_one_replaces_an_earlier)
{
    EXPECT_EQ(loaded("'templates': [{'class': 'Widget', 'id': 'a', 'name': 'first'},"
                     "{'class': 'Widget', 'name': 'dropped'},"
                     "{'class': 'Image', 'id': 'a', 'name': 'second'}]"),
              "-=Image:second3 a=Image:second3 ");
}

TEST_F(layout_loader_test, a_template_alone_is_cloned_and_one_beside_a_class_is_copied)
{
    const WidgetPtr clone =
        built("'templates': [{'class': 'Container', 'id': 't', 'width': 5, 'children':"
              "[{'class': 'Widget', 'name': 'inner', 'id': 'i'}]}],"
              "'widgets': [{'id': 'w', 'name': 'own', 'template': 't'},"
              "{'id': 'v', 'class': 'Overlay', 'template': 't', 'height': 9},"
              "{'id': 'u', 'class': 'Image', 'template': 'missing'}, {'template': 'missing'}]");
    EXPECT_EQ(treeText(clone), "Container:own3(Widget:inner1)");
    EXPECT_EQ(clone->widthValue, 5);
    const WidgetPtr copy = widgets.at("v");
    EXPECT_EQ(treeText(copy), "Overlay:4(Widget:inner1)");
    EXPECT_EQ(copy->widthValue + copy->heightValue, 14);
    EXPECT_EQ(widgets.at("t")->heightValue, 1);
    EXPECT_EQ(treeText(widgets.at("u")), "Image:5");
    // The map knows the template's child; the clones found theirs by name.
    EXPECT_EQ(widgets.at("i")->parent, widgets.at("t").get());
    EXPECT_EQ(clone->findByName("inner")->parent, clone.get());
}

TEST_F(layout_loader_test, an_instance_overrides_named_children_of_its_template_and_not_itself)
{
    const WidgetPtr instance =
        built("'templates': [{'class': 'Container', 'id': 't', 'name': 'title', 'children':"
              "[{'class': 'TextLabel', 'name': 'title', 'id': 'l', 'text': 'old'},"
              " {'class': 'Container', 'children': [{'class': 'Widget', 'name': 'deep'}]}]}],"
              "'widgets': [{'id': 'w', 'template': 't', 'title.text': 'new', 'title.width': 7,"
              " 'title.id': 'no', 'title.name': 'no', 'deep.height': 8}]");
    const auto& children = std::dynamic_pointer_cast<Container>(instance)->children();
    const auto label = std::dynamic_pointer_cast<nui::TextLabel>(children.front());
    EXPECT_EQ(label->getText(), "new");
    EXPECT_EQ(label->widthValue, 7);
    EXPECT_EQ(label->name + label->id, "title");
    EXPECT_EQ(instance->widthValue, 1);
    EXPECT_EQ(instance->findByName("deep")->heightValue, 8);
    EXPECT_EQ(std::dynamic_pointer_cast<nui::TextLabel>(widgets.at("l"))->getText(), "old");
}

TEST_F(layout_loader_test, a_dash_names_the_widget_built_before_and_a_hash_moves_one)
{
    const WidgetPtr box =
        built("'templates': [{'class': 'Widget', 'id': 'look'}],"
              "'widgets': [{'id': 'w', 'class': 'Container', 'children': ["
              "{'class': 'Widget', 'name': 'a', 'overTemplate': '-', 'pressedTemplate': 'look'},"
              "{'class': 'Widget', 'name': 'b', 'id': 'b', 'overTemplate': '-'},"
              "{'class': 'Widget', 'name': 'c'}, '#b', '#unknown']}]");
    EXPECT_EQ(treeText(box), "Container:5(Widget:a2)(Widget:c4)(Widget:b3)");
    const nui::Widget* const a = box->findByName("a");
    const nui::Widget* const b = box->findByName("b");
    EXPECT_EQ(a->stateTemplates->over, widgets.at("look"));
    EXPECT_EQ(b->stateTemplates->over.get(), a);
    EXPECT_EQ(b, widgets.at("b").get());
}

TEST_F(layout_loader_test, the_template_is_the_normal_look_of_a_widget_with_states)
{
    const WidgetPtr button =
        built("'templates': [{'class': 'Widget', 'id': 'down'},"
              "{'class': 'Widget', 'id': 't', 'pressedTemplate': 'down'}, {'class': 'Widget', "
              "'id': 'p'}],"
              "'widgets': [{'id': 'w', 'template': 't'}, {'id': 'v', 'template': 'p'}]");
    EXPECT_EQ(button->stateTemplates->normal, widgets.at("t"));
    EXPECT_EQ(button->stateTemplates->pressed, widgets.at("down"));
    EXPECT_EQ(widgets.at("v")->stateTemplates, nullptr);
}

TEST_F(layout_loader_test, with_a_target_widgets_without_an_id_get_a_free_one)
{
    folder.write("main.json", "{'widgets': [{'class': 'Widget'}, {'class': 'Image'},"
                              "{'class': 'Widget', 'id': 'own'}]}");
    nui::IncludeCache cache;
    WidgetMap target{{"widget1", std::make_shared<nui::Widget>()}};
    LayoutLoader loader("main.json");
    EXPECT_TRUE(loader.loadInto(cache, target));
    EXPECT_EQ(mapText(target), "own=Widget:4 widget1=Widget:0 widget2=Widget:1 widget3=Image:3 ");
    EXPECT_EQ(mapText(loader.pack().widgets), "-=Widget:4 own=Widget:4 ");
}

TEST_F(layout_loader_test, reloading_builds_anew_and_tells_what)
{
    folder.write("main.json", "{'widgets': [{'class': 'Container', 'id': 'w', 'children': ["
                              "{'class': 'Widget'}]}]}");
    LayoutLoader loader("main.json");
    const WidgetPtr before = loader.load().at("w");
    EXPECT_TRUE(loader.reloaded().empty());
    EXPECT_TRUE(loader.reload());
    const WidgetPtr after = loader.pack().widgets.at("w");
    EXPECT_NE(before, after);
    EXPECT_EQ(treeText(after), "Container:2(Widget:1)");
    ASSERT_EQ(loader.reloaded().size(), 2U);
    EXPECT_EQ(loader.reloaded().back(), after.get());
    folder.write("main.json", "{");
    EXPECT_TRUE(loader.reload());
    EXPECT_TRUE(loader.reloaded().empty());
}

TEST_F(layout_loader_test, design_classes_count_only_when_asked_for)
{
    folder.write("main.json", "{'widgets': ["
                              "{'id': 'a', 'class': 'Widget', 'd:class': 'Image'},"
                              "{'id': 'b', 'class': 'Widget', 'd:class': 5}]}");
    EXPECT_EQ(mapText(LayoutLoader("main.json").load()), "-=Widget:2 a=Widget:1 b=Widget:2 ");
    LayoutLoader designer("main.json");
    designer.setUseDesignClasses(true);
    EXPECT_EQ(mapText(designer.load()), "-=Widget:2 a=Image:1 b=Widget:2 ");
}

/// Notes in its tool tip what it was given.
class Initialised : public nui::Cloneable<Initialised, nui::Widget>, public nui::ModuleInit {
public:
    void init(nui::WidgetPack& pack, WidgetMap& widgets) override
    {
        toolTip = std::to_string(pack.widgets.size()) + " " + std::to_string(widgets.size());
    }
};

TEST_F(layout_loader_test, the_last_module_init_is_called_when_all_is_there)
{
    nui::registerWidgetClass("Initialised",
                             std::make_unique<nui::DefaultWidgetFactory<Initialised>>());
    folder.write("main.json", "{'templates': [{'id': 't', 'class': 'Initialised'}], 'widgets': ["
                              "{'id': 'a', 'class': 'Initialised'},"
                              "{'id': 'b', 'class': 'Initialised'},"
                              "{'class': 'Initialised', 'name': 'without id'},"
                              "{'id': 'c', 'class': 'Widget'}]}");
    LayoutLoader plain("main.json");
    widgets = plain.load();
    EXPECT_EQ(widgets.at("t")->toolTip + widgets.at("a")->toolTip, "");
    EXPECT_EQ(widgets.at("b")->toolTip, "5 5");

    nui::IncludeCache cache;
    WidgetMap target;
    LayoutLoader("main.json").loadInto(cache, target);
    EXPECT_EQ(target.at("b")->toolTip, "");
    EXPECT_EQ(target.at("widget4")->toolTip, "5 4");
}

} // namespace
