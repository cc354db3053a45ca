#include "nui/widgets/breadcrumbs.h"

#include "nui/engine/engine.h"
#include "nui/widgets/list_box.h"
#include "nui/widgets/more_button.h"
#include "nui/widgets/text_label.h"
#include "support/nui/control_test.h"

#include <SDL_keycode.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using nui::Breadcrumbs;
using nui::engine;

class breadcrumbs_test : public nui::test::ControlTest {
protected:
    // Parts of 40 pixels, separators of 10, a button of 20.
    void openRow(int width)
    {
        open("{'class': 'Breadcrumbs', 'name': 'row', 'height': 20, 'itemTemplate': 'part', "
             "'separatorTemplate': 'bar', 'items': ['aaaa', 'bbbb', 'cccc', 'dddd'], 'width': " +
                 std::to_string(width) +
                 ", 'children': [{'class': 'MoreButton', 'name': 'more', 'width': 20, "
                 "'separatorReplacement': 'wide'}]}",
             "{'class': 'TextButton', 'id': 'part', 'width': 'content'},"
             "{'class': 'Widget', 'id': 'bar', 'width': 10},"
             "{'class': 'Widget', 'id': 'wide', 'width': 15}");
        row = &get<Breadcrumbs>("row");
        noteActivations("row", [this] { return std::to_string(row->picked()); });
    }

    /// Names and places of what is shown; of parts the text.
    [[nodiscard]] std::string shown() const
    {
        std::string text;
        for (const nui::WidgetPtr& child : row->children()) {
            if (!child->isDrawn())
                continue;
            const auto* const label = dynamic_cast<nui::TextLabel*>(child.get());
            text += (label != nullptr ? label->getText() : child->name) + "@" +
                    std::to_string(static_cast<int>(child->localX)) + " ";
        }
        return text;
    }

    [[nodiscard]] nui::Widget& part(const std::string& text) const
    {
        for (const nui::WidgetPtr& child : row->children()) {
            const auto* const label = dynamic_cast<nui::TextLabel*>(child.get());
            if (label != nullptr && label->getText() == text)
                return *child;
        }
        throw std::invalid_argument(text);
    }

    void focusPart(const std::string& text) const
    {
        engine().setFocus(part(text).shared_from_this());
    }

    [[nodiscard]] std::string focusedText() const
    {
        return dynamic_cast<nui::TextLabel&>(*screen->focusedWidget).getText();
    }

    Breadcrumbs* row = nullptr;
};

TEST_F(breadcrumbs_test, parts_that_have_no_room_give_way_to_the_more_button)
{
    openRow(190);
    const auto shownAt = [this](float width) {
        row->widthValue = width;
        layOutAnew();
        return shown();
    };
    EXPECT_EQ(shown(), "aaaa@0 separator@40 bbbb@50 separator@90 cccc@100 separator@140 dddd@150 ");
    EXPECT_EQ(shownAt(189), "more@0 more_separator@20 bbbb@35 separator@75 cccc@85 separator@125 "
                            "dddd@135 ");
    EXPECT_EQ(shownAt(10), "more@0 more_separator@20 dddd@35 ") << "the place itself stays";
    (void)shownAt(190);
    EXPECT_EQ(row->hiddenCount(), 0U);
}

TEST_F(breadcrumbs_test, a_part_that_is_clicked_is_picked_but_not_the_last)
{
    openRow(200);
    noteActivations("", [] { return "around it"; });
    click(part("bbbb"));
    EXPECT_EQ(taken(), "1 around it ");
    click(part("dddd"));
    EXPECT_EQ(taken(), "");
}

TEST_F(breadcrumbs_test, hidden_parts_are_picked_from_a_list)
{
    openRow(130);
    ASSERT_EQ(row->hiddenCount(), 2U);
    click("more");
    ASSERT_NE(popup(), nullptr);
    EXPECT_EQ(popup()->list().itemText(1), "bbbb");
    click(*popup()->list().children()[1]);
    EXPECT_EQ(taken(), "1 ");
    EXPECT_EQ(popup(), nullptr);
    click("more");
    click("more");
    EXPECT_EQ(popup(), nullptr) << "a second click closes the list";
}

TEST_F(breadcrumbs_test, keys_go_along_the_parts_and_into_the_list)
{
    openRow(170);
    focusPart("bbbb");
    toolkit.key(SDLK_RIGHT);
    EXPECT_EQ(focusedText(), "cccc");
    toolkit.key(SDLK_RIGHT);
    EXPECT_EQ(focusedText(), "cccc") << "the last part leads nowhere";
    toolkit.key(SDLK_RETURN);
    EXPECT_EQ(taken(), "2 ");
    toolkit.keys({SDLK_LEFT, SDLK_LEFT});
    ASSERT_NE(popup(), nullptr);
    toolkit.frame();
    toolkit.keys({SDLK_DOWN, SDLK_RETURN});
    EXPECT_EQ(taken(), "0 ");
}

TEST_F(breadcrumbs_test, new_parts_stand_in_the_form_and_a_clone_has_its_own)
{
    openRow(200);
    row->setItems({"xx", "yy", "zz"});
    toolkit.frame();
    focusPart("xx");
    toolkit.key(SDLK_TAB);
    EXPECT_EQ(focusedText(), "yy");
    const auto copy = std::dynamic_pointer_cast<Breadcrumbs>(row->clone());
    copy->setItems({"other"});
    EXPECT_EQ(row->items().size(), 3U);
    EXPECT_NO_THROW((void)part("zz"));
}

} // namespace
