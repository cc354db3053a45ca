#include "tools/nui_preview/widget_tree.h"

#include "nui/widgets/container.h"
#include "nui/widgets/screen.h"
#include "nui/widgets/selectable_image.h"
#include "nui/widgets/text_label.h"

#include <gtest/gtest.h>

namespace {

using nrd::tools::preview::tree_of;

std::shared_ptr<nui::Widget> widget(const char* name, float width, float height)
{
    auto made = std::make_shared<nui::Widget>();
    made->name = name;
    made->width = width;
    made->height = height;
    return made;
}

TEST(widget_tree_test, every_key_is_there_whatever_its_value)
{
    auto screen = std::make_shared<nui::Screen>();
    screen->id = "main";
    auto label = std::make_shared<nui::TextLabel>();
    label->setText("Gr\xC3\xB6\xC3\x9F"
                   "e");
    label->touchEnabled = false;
    screen->add(label);
    screen->focusedWidget = label;
    EXPECT_EQ(tree_of(*screen).dump(),
              R"({"class":"Screen","id":"main","name":"","x":0,"y":0,"width":0,"height":0,)"
              R"("visibility":"Visible","enabled":true,"focused":false,"children":[)"
              R"({"class":"TextLabel","id":"","name":"","text":")"
              "Gr\xC3\xB6\xC3\x9F"
              R"(e",)"
              R"("x":0,"y":0,"width":0,"height":0,"visibility":"Visible","enabled":false,)"
              R"("focused":true,"children":[]}]})");
}

TEST(widget_tree_test, a_selected_image_is_in_state_1)
{
    nui::SelectableImage image;
    image.setSelected(true);
    EXPECT_EQ(tree_of(image)["state"], 1);
}

TEST(widget_tree_test, sizes_are_rounded_to_what_all_processors_agree_on)
{
    const auto made = widget("", 100.0F / 3, 59.99999F);
    EXPECT_EQ(tree_of(*made)["width"].dump(), "33.3333");
    EXPECT_EQ(tree_of(*made)["height"].dump(), "60");
    made->width = -1;
    EXPECT_EQ(tree_of(*made)["width"].dump(), "-1");
}

TEST(widget_tree_test, places_are_those_drawn_and_else_those_laid_out)
{
    nui::Screen screen;
    screen.width = screen.height = 50;
    auto page = std::make_shared<nui::Container>();
    page->width = page->height = 20;
    auto child = widget("child", 5, 5);
    child->x = 7; // as drawn before, scrolled by 2
    child->localX = 9;
    page->add(child);
    screen.add(page);
    const auto place = [&] {
        return tree_of(screen)["children"][0]["children"][0]["x"].get<int>();
    };
    EXPECT_EQ(place(), 7);
    page->visibility = nui::visibility::Hidden;
    EXPECT_EQ(place(), 9);
}

TEST(widget_tree_test, visibility_has_the_words_of_layout_files)
{
    const auto made = widget("", 1, 1);
    const char* const words[] = {"Collapsed", "Hidden", "Overlapping",        "Visible",
                                 "4",         "5",      "ClippedOverlapping", "Clipped",
                                 "8"};
    for (std::uint32_t value = 0; value < std::size(words); ++value) {
        made->visibility = value;
        EXPECT_EQ(tree_of(*made)["visibility"], words[value]);
    }
}

} // namespace
