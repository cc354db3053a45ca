#include "nui/widgets/screen.h"

#include "nui/engine/engine.h"
#include "support/nui/running_toolkit.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

using nui::engine;

/// A layout file with one screen of these keys, without a frame.
std::string screenWith(const std::string& keys)
{
    return "{'widgets': [{'class': 'Screen', 'id': 'screen', 'name': 'screen', "
           "'borderless': true, " +
           keys + "}]}";
}

const std::string twoWidgets = "'windowWidth': 120, 'windowHeight': 80, 'children': ["
                               "{'class': 'Widget', 'name': 'a', 'width': 30, 'height': 20},"
                               "{'class': 'Widget', 'name': 'b', 'width': 30, 'height': 20}]";

class screen_test : public testing::Test {
protected:
    nui::test::RunningToolkit toolkit;
};

TEST_F(screen_test, without_a_size_the_window_fits_its_contents)
{
    const auto screen = toolkit.open(
        screenWith("'padding': {'left': '20.5px', 'right': 100}, 'children': ["
                   "{'class': 'Widget', 'name': 'only', 'width': 90, 'height': 150}]"));
    EXPECT_EQ(nui::test::rectangles(*screen), "screen 0 0 210 150\n only 20 0 90 150\n");
    EXPECT_EQ(screen->window->drawableWidth, 210);
    EXPECT_EQ(screen->window->drawableHeight, 150);
    EXPECT_FALSE(screen->dirty);
}

TEST_F(screen_test, a_hidden_screen_waits_until_it_is_shown)
{
    const auto screen =
        toolkit.open(screenWith("'visibility': 'Hidden', 'windowWidth': 120, 'windowHeight': 80"));
    EXPECT_TRUE(screen->isOpen());
    EXPECT_FALSE(screen->isLaidOut());
    screen->show();
    EXPECT_TRUE(screen->isShowPending());
    toolkit.frame();
    EXPECT_TRUE(screen->isLaidOut());
    EXPECT_FALSE(screen->isShowPending());
    EXPECT_FALSE(screen->window->hidden);
}

TEST_F(screen_test, one_modal_overlay_at_a_time_covers_all)
{
    const auto screen = toolkit.open(screenWith(twoWidgets));
    const auto first = std::make_shared<nui::Widget>();
    const auto second = std::make_shared<nui::Widget>();
    screen->showModalOverlay(first, true);
    EXPECT_EQ(screen->modalOverlay()->backgroundColor, 0xC0000000U);
    screen->showModalOverlay(second, false);
    toolkit.frame();
    EXPECT_EQ(screen->children().size(), 3U);
    EXPECT_EQ(screen->modalOverlay()->backgroundColor, 0U);
    EXPECT_EQ(screen->modalOverlay()->width, 120);
    EXPECT_EQ(first->parent, nullptr);
    toolkit.move(10, 10);
    EXPECT_EQ(engine().pointer.hover(), second);
    screen->removeModalOverlay();
    EXPECT_EQ(screen->children().size(), 2U);
}

TEST_F(screen_test, going_back_takes_one_change_at_a_time)
{
    const auto screen = toolkit.open(screenWith(twoWidgets));
    const auto child = std::make_shared<nui::Widget>();
    nui::BackStack& back = engine().backStack;
    EXPECT_FALSE(back.goBack());
    back.pushStateId(7);
    back.pushModalChild(child, true);
    EXPECT_EQ(screen->stateId(), 7U);
    EXPECT_TRUE(back.goBack());
    EXPECT_EQ(screen->modalOverlay(), nullptr);
    EXPECT_EQ(screen->stateId(), 7U);
    EXPECT_TRUE(back.goBack());
    EXPECT_EQ(screen->stateId(), 0U);
    EXPECT_TRUE(back.empty());
}

TEST_F(screen_test, a_dragged_clone_follows_the_pointer_until_the_release)
{
    const auto screen = toolkit.open(screenWith(twoWidgets));
    const nui::WidgetPtr a = screen->findChild("a");
    screen->beginDrag(a, screen.get(), 3, 4, false);
    toolkit.move(20, 30);
    ASSERT_EQ(screen->children().size(), 3U);
    const nui::WidgetPtr dragged = screen->children().back();
    EXPECT_EQ(dragged->localX, 17);
    EXPECT_EQ(dragged->localY, 26);
    EXPECT_FALSE(dragged->touchEnabled);
    EXPECT_TRUE(a->touchEnabled);
    toolkit.release();
    EXPECT_EQ(screen->children().size(), 2U);
    toolkit.move(40, 40);
    EXPECT_EQ(dragged->localX, 17);
}

TEST_F(screen_test, a_title_is_its_text_until_the_language_knows_it)
{
    const auto screen = toolkit.open(screenWith("'windowTitle': 'Plain text'"));
    EXPECT_EQ(screen->title(), "Plain text");
    screen->setTitleKey("NO_SUCH_KEY");
    EXPECT_EQ(screen->title(), "Plain text");
}

} // namespace
