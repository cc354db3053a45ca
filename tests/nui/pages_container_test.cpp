#include "nui/widgets/pages_container.h"

#include "nui/events/dispatch.h"
#include "support/nui/layout.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

class pages_container_test : public testing::Test {
protected:
    pages_container_test()
    {
        for (const char* const name : {"one", "two"})
            subscribe(
                *pages->findByName(name), nui::plain_event::Activate,
                [](nui::WidgetEvent& event) {
                    const bool told = dynamic_cast<nui::PagesContainerEvent*>(&event) != nullptr &&
                                      event.phase == nui::Phase::AtTarget;
                    *static_cast<std::string*>(event.user) +=
                        event.target->name + (told ? " " : "? ");
                },
                &opened);
    }

    std::string visibilities()
    {
        std::string text;
        for (const nui::WidgetPtr& page : pages->children())
            text += std::to_string(page->visibility);
        return text;
    }

    nui::test::MeasuringEngine engine;
    std::string opened;
    std::shared_ptr<nui::PagesContainer> pages =
        std::dynamic_pointer_cast<nui::PagesContainer>(nui::test::containerOf(
            R"({'class': 'PagesContainer', 'width': 100, 'height': 80,
                'padding': {'left': 10, 'top': 5, 'right': 20}, 'children': [
                    {'class': 'Container', 'name': 'one', 'width': 7, 'left': 3, 'bottom': 5,
                     'children': [{'class': 'Widget', 'name': 'inside'}]},
                    {'class': 'Widget', 'name': 'two', 'visibility': 'Clipped'}]})"));
};

TEST_F(pages_container_test, shows_one_page_and_tells_it_once)
{
    EXPECT_EQ(visibilities(), "37");
    EXPECT_FALSE(pages->show("three"));
    EXPECT_EQ(visibilities(), "37");
    EXPECT_TRUE(pages->show("one"));
    EXPECT_EQ(visibilities(), "30");
    EXPECT_FALSE(pages->show("one"));
    EXPECT_TRUE(pages->show("two"));
    EXPECT_EQ(visibilities(), "03");
    EXPECT_EQ(opened, "one two ");
    EXPECT_EQ(pages->current()->name, "two");
    EXPECT_FALSE(pages->show(std::make_shared<nui::Widget>()));
    EXPECT_EQ(pages->current()->name, "two");
}

TEST_F(pages_container_test, gives_the_page_its_whole_room_whatever_size_it_asks_for)
{
    pages->show("one");
    nui::test::layOut(*pages);
    EXPECT_EQ(nui::test::rectangles(*pages), "root 0 0 100 80\n"
                                             " one 13 5 67 70\n"
                                             "  inside 13 5 67 70\n"
                                             " two 10 0 0 0\n");
}

TEST_F(pages_container_test, is_as_large_as_the_page_that_shows_where_it_has_no_size_itself)
{
    pages->widthMode = pages->heightMode = nui::Content;
    nui::Widget& two = *pages->findByName("two");
    two.widthMode = two.heightMode = nui::Px;
    two.widthValue = 50;
    two.heightValue = 40;
    pages->show("two");
    nui::test::layOut(*pages);
    EXPECT_EQ(nui::test::rectangles(*pages), "root 0 0 80 45\n"
                                             " one 13 0 0 0\n"
                                             "  inside 13 0 0 0\n"
                                             " two 10 5 50 40\n");
}

TEST_F(pages_container_test, a_page_that_was_taken_out_shows_no_more)
{
    pages->show("two");
    const nui::WidgetPtr two = pages->current();
    pages->remove(two.get());
    nui::test::layOut(*pages);
    EXPECT_FALSE(pages->current());
    pages->add(two);
    EXPECT_TRUE(pages->show("two"));
}

TEST_F(pages_container_test, a_clone_shows_its_own_page)
{
    pages->show("two");
    const auto copy = std::dynamic_pointer_cast<nui::PagesContainer>(pages->clone());
    EXPECT_EQ(copy->current(), copy->children()[1]);
    EXPECT_NE(copy->current(), pages->current());
    EXPECT_FALSE(copy->show("two"));
    EXPECT_TRUE(copy->show("one"));
    EXPECT_EQ(pages->current()->name, "two");
}

} // namespace
