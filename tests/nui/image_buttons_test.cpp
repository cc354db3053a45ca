#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/widgets/image_array.h"
#include "nui/widgets/image_button.h"
#include "nui/widgets/multi_state_button.h"
#include "nui/widgets/ok_cancel_button.h"
#include "nui/widgets/selectable_image.h"
#include "nui/widgets/text_button.h"
#include "nui/widgets/toggle_button.h"
#include "support/nui/control_test.h"
#include "support/nui/layout_folder.h"
#include "support/nui/pixel_at.h"

#include <SDL_keycode.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using nui::engine;
using nui::MultiStateButton;
using nui::ToggleButton;

constexpr const char* ThreeStates =
    "{'class': 'MultiStateButton', 'name': 'button', 'width': 20, 'height': 20, 'image': "
    "'picture', "
    "'children': [{'class': 'ImageArray', 'name': 'picture', 'files': ['a', 'b', 'c']}]},"
    "{'class': 'Widget', 'name': 'beside', 'width': 20, 'height': 20}";

class image_buttons_test : public nui::test::ControlTest {
protected:
    image_buttons_test()
    {
        pictures.write("a.png", "r\n");
        pictures.write("b.png", "g\n");
        pictures.write("c.png", "b\n");
    }
};

TEST_F(image_buttons_test, each_click_shows_the_next_state_before_others_hear_of_it)
{
    open(ThreeStates);
    auto& button = get<MultiStateButton>("button");
    noteActivations("button", [&] { return std::to_string(button.state()); });
    for (int clicks = 0; clicks < 4; ++clicks)
        click("button");
    EXPECT_EQ(taken(), "1 2 0 1 ");
    press(button);
    moveTo(*find("beside"));
    toolkit.release();
    EXPECT_EQ(button.state(), 1U) << "released beside it";
    button.setState(2);
    button.setState(3);
    EXPECT_EQ(button.state(), 2U) << "there is no fourth picture";
    EXPECT_EQ(taken(), "") << "a state from the program raises nothing";
    screen->draw({0, 0}, 1);
    EXPECT_EQ(nui::test::pixelAt(10, 10), "0000ff");
}

TEST_F(image_buttons_test, a_clone_has_a_state_of_its_own)
{
    open(ThreeStates);
    auto& button = get<MultiStateButton>("button");
    const auto copy = addClone(button);
    click(*copy);
    EXPECT_EQ(copy->state(), 1U);
    EXPECT_EQ(button.state(), 0U);
}

TEST_F(image_buttons_test, without_pictures_the_state_stays_and_the_layout_file_is_told_of)
{
    const std::string button = "{'class': 'MultiStateButton', 'name': 'button', 'width': 20, "
                               "'height': 20, 'image': 'picture', 'children': [";
    open(button + "{'class': 'ImageArray', 'name': 'picture'}]}");
    noteActivations("button", [] { return "clicked"; });
    click("button");
    EXPECT_EQ(get<MultiStateButton>("button").state(), 0U);
    EXPECT_EQ(taken(), "clicked ");
    const nui::test::LayoutFolder folder;
    folder.write("empty.json",
                 "{'widgets': [" + button + "{'class': 'ImageArray', 'name': 'picture'}]}]}");
    EXPECT_NE(folder.faultsOf("empty.json").find("the image array \"picture\" has no images"),
              std::string::npos);
    folder.write("none.json", "{'widgets': [" + button + "]}]}");
    EXPECT_NE(folder.faultsOf("none.json").find("no widget \"picture\""), std::string::npos);
}

TEST_F(image_buttons_test, a_picture_is_a_button_for_pointer_and_keys)
{
    open("{'class': 'ImageButton', 'name': 'button', 'file': 'a', 'width': 20, 'height': 20, "
         "'default': true}, {'class': 'TextField', 'name': 'field', 'height': 20}");
    noteActivations("button", [] { return "x"; });
    click("button");
    EXPECT_EQ(taken(), "x ");
    focus("field");
    toolkit.key(SDLK_RETURN);
    EXPECT_EQ(taken(), "x ") << "the form's default";
    focus("button");
    toolkit.keys({SDLK_RETURN, SDLK_KP_ENTER, SDLK_SPACE, SDLK_a});
    EXPECT_EQ(taken(), "x x x ");
    find("button")->setEnabled(false);
    toolkit.key(SDLK_SPACE);
    click("button");
    EXPECT_EQ(taken(), "");
}

constexpr const char* ToggleTemplates =
    "{'class': 'Widget', 'id': 'grey', 'backgroundColor': '#808080'},"
    "{'class': 'TextButton', 'id': 'off', 'name': 'off', 'text': 'off', "
    "'disabledTemplate': 'grey', 'backgroundColor': '#FFFFFF'},"
    "{'class': 'TextButton', 'id': 'on', 'name': 'on', 'text': 'on'}";

constexpr const char* Toggle = "{'class': 'ToggleButton', 'name': 'toggle', 'width': 60, "
                               "'height': 20, 'itemTemplate': 'off', 'selectedItemTemplate': 'on'}";

TEST_F(image_buttons_test, a_click_on_its_child_flips_a_toggle_button_which_speaks_for_itself)
{
    open(Toggle, ToggleTemplates);
    auto& toggle = get<ToggleButton>("toggle");
    const auto shown = [&] { return toggle.children().front()->name; };
    noteActivations("toggle", [&] { return "toggle " + shown(); });
    noteActivations("", [&] { return "around it"; }); // the screen, which has no name
    click("toggle");
    EXPECT_EQ(taken(), "toggle on around it ");
    click("toggle");
    EXPECT_EQ(taken(), "toggle off around it ");
    EXPECT_EQ(toggle.children().size(), 1U);
    toggle.setSelected(true);
    EXPECT_EQ(shown(), "on");
    EXPECT_EQ(taken(), "");
    send(*toggle.children().front(), nui::plain_event::Activate);
    EXPECT_TRUE(toggle.isSelected()) << "nobody has pressed it";
}

TEST_F(image_buttons_test, the_keyboard_stays_with_a_toggle_button_that_changes_its_child)
{
    open(std::string(Toggle) + ", {'class': 'TextField', 'name': 'field', 'height': 20}",
         ToggleTemplates);
    focus("off");
    click("toggle");
    EXPECT_EQ(focused(), "on");
    toolkit.key(SDLK_TAB);
    EXPECT_EQ(focused(), "field");
    toolkit.key(SDLK_TAB);
    EXPECT_EQ(focused(), "on");
}

TEST_F(image_buttons_test, what_is_done_to_a_toggle_buttons_items_stays_with_them)
{
    open("{'template': 'both', 'name': 'toggle', 'width': 60, 'height': 20, 'off.text': 'no', "
         "'on.text': 'yes'}",
         std::string(ToggleTemplates) +
             ", {'class': 'ToggleButton', 'id': 'both', 'itemTemplate': 'off', "
             "'selectedItemTemplate': 'on'}");
    auto& toggle = get<ToggleButton>("toggle");
    const nui::WidgetPtr off = toggle.item(false);
    int presses = 0;
    subscribe(
        *off, nui::touch::Press, [](nui::WidgetEvent& event) { ++*static_cast<int*>(event.user); },
        &presses);
    const auto text = [](const nui::WidgetPtr& item) {
        return dynamic_cast<const nui::TextButton&>(*item).getText();
    };
    const auto copy = std::dynamic_pointer_cast<ToggleButton>(toggle.clone());
    click("toggle");
    EXPECT_EQ(toggle.children().front(), toggle.item(true));
    EXPECT_EQ(text(toggle.item(true)), "yes");
    click("toggle");
    EXPECT_EQ(toggle.children().front(), off);
    EXPECT_EQ(text(off), "no");
    click("toggle");
    EXPECT_EQ(presses, 2);
    EXPECT_NE(copy->item(true), toggle.item(true));
    toggle.setSelected(false);
    copy->setSelected(true);
    EXPECT_EQ(copy->children().size(), 1U);
    EXPECT_EQ(text(copy->children().front()), "yes");
    EXPECT_EQ(toggle.children().front(), off);
}

TEST_F(image_buttons_test, a_disabled_toggle_button_looks_so)
{
    open(Toggle, ToggleTemplates);
    auto& toggle = get<ToggleButton>("toggle");
    toggle.setEnabled(false);
    EXPECT_EQ(toggle.children().front()->backgroundColor, 0xFF808080);
    click("toggle");
    EXPECT_FALSE(toggle.isSelected());
    toggle.setEnabled(true);
    EXPECT_EQ(toggle.children().front()->backgroundColor, 0xFFFFFFFF);
    toggle.setSelected(true);
    const std::uint32_t selectedColor = toggle.item(true)->backgroundColor;
    toggle.setEnabled(false);
    EXPECT_EQ(toggle.item(true)->backgroundColor, 0xFF808080);
    toggle.setEnabled(true);
    EXPECT_EQ(toggle.item(true)->backgroundColor, selectedColor);
}

TEST_F(image_buttons_test, a_selected_image_shows_the_picture_of_its_template)
{
    open("{'class': 'SelectableImage', 'name': 'image', 'width': 20, 'height': 20, 'file': 'a', "
         "'imageSelectedTemplate': 'chosen'}",
         "{'class': 'Image', 'id': 'chosen', 'file': 'b'}");
    const auto drawn = [&] {
        screen->draw({0, 0}, 1);
        return nui::test::pixelAt(10, 10);
    };
    EXPECT_EQ(drawn(), "ff0000");
    get<nui::SelectableImage>("image").setSelected(true);
    EXPECT_EQ(drawn(), "00ff00");
}

TEST_F(image_buttons_test, a_clone_of_two_buttons_knows_its_own)
{
    open("{'class': 'OkCancelButton', 'name': 'pair', 'height': 20, 'children': ["
         "{'class': 'TextButton', 'name': 'ok_button'}, "
         "{'class': 'Widget', 'name': 'button_seperator'}, "
         "{'class': 'Widget', 'name': 'cancel_button'}]}");
    const auto& pair = get<nui::OkCancelButton>("pair");
    EXPECT_EQ(pair.okButton(), find("ok_button").get());
    EXPECT_EQ(pair.separator(), find("button_seperator").get());
    EXPECT_EQ(pair.cancelButton(), nullptr) << "it is no button";
    const auto copy = std::dynamic_pointer_cast<nui::OkCancelButton>(pair.clone());
    EXPECT_EQ(copy->okButton(), copy->findByName("ok_button"));
    EXPECT_NE(copy->okButton(), pair.okButton());
}

} // namespace
