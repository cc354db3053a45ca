#include "support/nui/layout.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using nui::test::laidOut;

class layout_test : public testing::Test {
protected:
    nui::test::MeasuringEngine engine;
};

TEST_F(layout_test, units_resolve_by_display_and_parent_and_weights_ignore_percent_siblings)
{
    EXPECT_EQ(laidOut(R"({'class': 'Container', 'width': 1000, 'height': 100,
        'layout': 'Horizontal', 'children': [
            {'class': 'Widget', 'name': 'px', 'width': '10.7'},
            {'class': 'Widget', 'name': 'pt', 'width': '10.3pt'},
            {'class': 'Widget', 'name': 'sp', 'width': '10.5sp'},
            {'class': 'Widget', 'name': 'percent', 'width': '10%'},
            {'class': 'Widget', 'name': 'display', 'width': '10%s'},
            {'class': 'Widget', 'name': 'rest'}]})"),
              "root 0 0 1000 100\n"
              " px 0 0 10 100\n"
              " pt 10 0 20 100\n"
              " sp 30 0 31 100\n"
              " percent 61 0 100 100\n"
              " display 161 0 50 100\n"
              " rest 211 0 889 100\n");
}

TEST_F(layout_test, weights_share_what_sizes_margins_and_padding_leave)
{
    EXPECT_EQ(laidOut(R"({'class': 'Container', 'width': 300, 'height': 50,
        'layout': 'Horizontal',
        'padding': {'left': 10, 'right': 20, 'top': 1, 'bottom': 2}, 'children': [
            {'class': 'Widget', 'name': 'one', 'left': 5, 'right': 5},
            {'class': 'Widget', 'name': 'two', 'width': '2?', 'top': 3},
            {'class': 'Widget', 'name': 'fixed', 'width': 32, 'height': '50%'}]})"),
              "root 0 0 300 50\n"
              " one 15 1 76 47\n"
              " two 96 4 152 44\n"
              " fixed 248 1 32 25\n");
}

TEST_F(layout_test, content_is_the_sum_along_and_the_largest_across)
{
    EXPECT_EQ(laidOut(R"({'class': 'Container', 'width': 'content', 'height': 'content',
        'padding': {'left': 4, 'right': 4, 'top': 4, 'bottom': 4}, 'children': [
            {'class': 'Widget', 'name': 'wide', 'width': 40, 'height': 10, 'left': 3, 'top': 2},
            {'class': 'Widget', 'name': 'out', 'width': 90, 'height': 90,
             'visibility': 'Overlapping'},
            {'class': 'Widget', 'name': 'small', 'width': 20, 'height': 5}]})"),
              "root 0 0 51 25\n"
              " wide 7 6 40 10\n"
              " out 4 4 90 90\n"
              " small 4 16 20 5\n");
}

TEST_F(layout_test, a_weight_across_fills_nested_content_once_that_is_known)
{
    EXPECT_EQ(laidOut(R"({'class': 'Container', 'width': 200, 'height': 100, 'children': [
            {'class': 'Container', 'name': 'inner', 'width': 'content', 'height': 'content',
             'children': [
                {'class': 'Widget', 'name': 'fixed', 'width': 40, 'height': 10},
                {'class': 'Widget', 'name': 'filling', 'height': 7}]}]})"),
              "root 0 0 200 100\n"
              " inner 0 0 40 17\n"
              "  fixed 0 0 40 10\n"
              "  filling 0 10 40 7\n");
}

TEST_F(layout_test, limits_cut_across_and_fixed_sizes_but_no_weight_along)
{
    EXPECT_EQ(laidOut(R"({'class': 'Container', 'width': 300, 'height': 100,
        'layout': 'Horizontal', 'children': [
            {'class': 'Widget', 'name': 'cut', 'width': 100, 'maxWidth': 60, 'maxHeight': 30},
            {'class': 'Widget', 'name': 'free', 'maxWidth': 50},
            {'class': 'Widget', 'name': 'none', 'width': 10, 'maxWidth': '1%'}]})"),
              "root 0 0 300 100\n"
              " cut 0 0 60 30\n"
              " free 60 0 230 100\n"
              " none 290 0 10 100\n");
}

TEST_F(layout_test, gravity_keeps_the_order_within_each_end_and_the_centre)
{
    EXPECT_EQ(laidOut(R"({'class': 'Container', 'width': 300, 'height': 40,
        'layout': 'Horizontal', 'padding': {'left': 10, 'right': 20}, 'children': [
            {'class': 'Widget', 'name': 'e1', 'width': 10, 'gravity': 'End'},
            {'class': 'Widget', 'name': 'c1', 'width': 40, 'gravity': 'Center'},
            {'class': 'Widget', 'name': 's1', 'width': 30},
            {'class': 'Widget', 'name': 'e2', 'width': 15, 'right': 5, 'gravity': 'End'},
            {'class': 'Widget', 'name': 'c2', 'width': 20, 'gravity': 'Center'}]})"),
              "root 0 0 300 40\n"
              " e1 250 0 10 40\n"
              " c1 115 0 40 40\n"
              " s1 10 0 30 40\n"
              " e2 260 0 15 40\n"
              " c2 155 0 20 40\n");
}

// The end's formula counts the start margin and knows no start padding; layouts rest on it.
TEST_F(layout_test, alignment_places_across_with_margins_and_padding)
{
    EXPECT_EQ(laidOut(R"({'class': 'Container', 'width': 300, 'height': 100,
        'layout': 'Horizontal', 'padding': {'top': 10, 'bottom': 20}, 'children': [
            {'class': 'Widget', 'name': 'start', 'width': 10, 'height': 10, 'top': 4, 'bottom': 2},
            {'class': 'Widget', 'name': 'center', 'width': 10, 'height': 10, 'top': 4,
             'bottom': 2, 'alignment': 'Center'},
            {'class': 'Widget', 'name': 'end', 'width': 10, 'height': 10, 'top': 4, 'bottom': 2,
             'alignment': 'End'}]})"),
              "root 0 0 300 100\n"
              " start 0 14 10 10\n"
              " center 10 41 10 10\n"
              " end 20 72 10 10\n");
}

// At the end an overlapping child stands as if there were no start padding.
TEST_F(layout_test, overlapping_children_take_no_room_and_place_themselves_alone)
{
    EXPECT_EQ(laidOut(R"({'class': 'Container', 'width': 100, 'height': 200,
        'padding': {'top': 10, 'bottom': 20, 'left': 1}, 'children': [
            {'class': 'Widget', 'name': 's', 'width': 5, 'height': 30, 'top': 3, 'bottom': 7,
             'visibility': 'Overlapping'},
            {'class': 'Widget', 'name': 'c', 'width': 5, 'height': 30, 'top': 3, 'bottom': 7,
             'visibility': 'ClippedOverlapping', 'gravity': 'Center'},
            {'class': 'Widget', 'name': 'e', 'width': 5, 'height': 30, 'top': 3, 'bottom': 7,
             'visibility': 'Overlapping', 'gravity': 'End'},
            {'class': 'Widget', 'name': 'flow', 'width': 5, 'height': 30}]})"),
              "root 0 0 100 200\n"
              " s 1 13 5 30\n"
              " c 1 75 5 30\n"
              " e 1 133 5 30\n"
              " flow 1 10 5 30\n");
}

TEST_F(layout_test, hidden_takes_room_and_collapsed_takes_none)
{
    EXPECT_EQ(laidOut(R"({'class': 'Container', 'width': 'content', 'height': 'content',
        'children': [
            {'class': 'Widget', 'name': 'hidden', 'width': 5, 'height': 10,
             'visibility': 'Hidden'},
            {'class': 'Widget', 'name': 'gone', 'width': 90, 'height': 90,
             'visibility': 'Collapsed'},
            {'class': 'Widget', 'name': 'shown', 'width': 5, 'height': 10}]})"),
              "root 0 0 5 20\n"
              " hidden 0 0 5 10\n"
              " gone 0 0 90 90\n"
              " shown 0 10 5 10\n");
}

TEST_F(layout_test, a_grid_breaks_its_lines_where_it_ends_and_grows_across)
{
    EXPECT_EQ(laidOut(R"({'class': 'Container', 'width': 100, 'height': 'content',
        'layout': 'HorizontalGrid', 'padding': {'top': 3, 'bottom': 4}, 'children': [
            {'class': 'Widget', 'name': 'a', 'width': 40, 'height': 10, 'right': 2},
            {'class': 'Widget', 'name': 'b', 'width': 40, 'height': 12, 'right': 2},
            {'class': 'Widget', 'name': 'c', 'width': 40, 'height': 10, 'right': 2},
            {'class': 'Widget', 'name': 'd', 'width': 40, 'height': 5, 'right': 2, 'top': 1},
            {'class': 'Widget', 'name': 'e', 'width': 40, 'height': 10, 'right': 2}]})"),
              "root 0 0 100 39\n"
              " a 0 3 40 10\n"
              " b 42 3 40 12\n"
              " c 0 15 40 10\n"
              " d 42 16 40 5\n"
              " e 0 25 40 10\n");
    EXPECT_EQ(laidOut(R"({'class': 'Container', 'width': 'content', 'height': 100,
        'layout': 'VerticalGrid', 'padding': {'left': 3, 'right': 9, 'bottom': 4}, 'children': [
            {'class': 'Widget', 'name': 'a', 'width': 10, 'height': 40},
            {'class': 'Widget', 'name': 'b', 'width': 10, 'height': 40},
            {'class': 'Widget', 'name': 'c', 'width': 10, 'height': 40}]})"),
              // The bottom padding, whichever way the grid runs.
              "root 0 0 27 100\n"
              " a 3 0 10 40\n"
              " b 3 40 10 40\n"
              " c 13 0 10 40\n");
}

TEST_F(layout_test, a_number_before_content_is_the_items_in_a_line)
{
    EXPECT_EQ(laidOut(R"({'class': 'Container', 'width': '3content', 'height': 'content',
        'layout': 'HorizontalGrid', 'children': [
            {'class': 'Widget', 'name': 'a', 'width': 40, 'height': 10},
            {'class': 'Widget', 'name': 'b', 'width': 10, 'height': 10},
            {'class': 'Widget', 'name': 'c', 'width': 40, 'height': 10},
            {'class': 'Widget', 'name': 'd', 'width': 40, 'height': 10}]})"),
              "root 0 0 130 20\n"
              " a 0 0 40 10\n"
              " b 40 0 10 10\n"
              " c 50 0 40 10\n"
              " d 0 10 40 10\n");
}

TEST_F(layout_test, an_empty_grid_is_as_high_as_its_bottom_padding)
{
    EXPECT_EQ(laidOut(R"({'class': 'Container', 'width': 100, 'height': 'content',
        'layout': 'HorizontalGrid', 'padding': {'bottom': 4}})"),
              "root 0 0 100 4\n");
}

TEST_F(layout_test, a_child_too_wide_for_an_empty_line_ends_the_placing_and_leaves_the_limits)
{
    const auto root = nui::test::containerOf(R"({'class': 'Container', 'width': 100,
        'height': 30, 'layout': 'HorizontalGrid', 'scrollY': true, 'children': [
            {'class': 'Widget', 'name': 'a', 'width': 40, 'height': 10},
            {'class': 'Widget', 'name': 'b', 'width': 150, 'height': 10, 'top': 5},
            {'class': 'Widget', 'name': 'c', 'width': 10, 'height': 10}]})");
    root->minScrollY = -77;
    nui::test::layOut(*root);
    EXPECT_EQ(nui::test::rectangles(*root), "root 0 0 100 30\n"
                                            " a 0 0 40 10\n"
                                            " b 0 0 150 10\n"
                                            " c 0 0 10 10\n");
    EXPECT_EQ(root->minScrollY, -77);
}

TEST_F(layout_test, positions_add_up_from_container_to_container)
{
    EXPECT_EQ(laidOut(R"({'class': 'Container', 'width': 200, 'height': 100,
        'padding': {'left': 20, 'top': 30}, 'children': [
            {'class': 'Container', 'name': 'inner', 'width': 100, 'height': 50,
             'padding': {'left': 1, 'top': 2}, 'children': [
                {'class': 'Widget', 'name': 'leaf', 'width': '50%', 'height': '12.5%'},
                {'class': 'Widget', 'name': 'last', 'width': 10, 'height': 9,
                 'gravity': 'End', 'alignment': 'End'}]}]})"),
              "root 0 0 200 100\n"
              " inner 20 30 100 50\n"
              "  leaf 21 32 50 6.25\n"
              "  last 110 71 10 9\n");
}

TEST_F(layout_test, scrolling_reaches_the_end_of_the_contents_and_stays_in_range)
{
    const auto root = nui::test::containerOf(R"({'class': 'Container', 'width': 100,
        'height': 100, 'scrollY': true, 'padding': {'bottom': 5}, 'children': [
            {'class': 'Widget', 'name': 'a', 'height': 60},
            {'class': 'Widget', 'name': 'b', 'height': 60}]})");
    nui::test::layOut(*root);
    EXPECT_EQ(root->minScrollY, -25);
    EXPECT_TRUE(root->setScrollY(-400, false));
    EXPECT_EQ(root->scrollY, -25);
    EXPECT_FALSE(root->setScrollY(-26, false));

    root->makeVisible(*root->children()[0]);
    EXPECT_EQ(root->scrollY, 0);
    root->makeVisible(*root->children()[1]);
    EXPECT_EQ(root->scrollY, -20);

    root->findByName("b")->heightValue = 40;
    nui::test::layOut(*root);
    EXPECT_EQ(root->minScrollY, -5);
    EXPECT_EQ(root->scrollY, -5);
}

TEST_F(layout_test, contents_that_all_end_flush_can_be_scrolled_from_their_beginning)
{
    const auto contents = [](const char* scroll) {
        return nui::test::containerOf(std::string(R"({'class': 'Container', 'width': 100,
            'height': 100, )") + scroll +
                                      R"('padding': {'top': 10}, 'children': [
            {'class': 'Widget', 'name': 'a', 'height': 60, 'gravity': 'End'},
            {'class': 'Widget', 'name': 'b', 'height': 60, 'gravity': 'End'}]})");
    };
    const auto fixed = contents("");
    nui::test::layOut(*fixed);
    EXPECT_EQ(nui::test::rectangles(*fixed), "root 0 0 100 100\n"
                                             " a 0 -20 100 60\n"
                                             " b 0 40 100 60\n");
    const auto scrolling = contents("'scrollY': true, ");
    nui::test::layOut(*scrolling);
    EXPECT_EQ(nui::test::rectangles(*scrolling), "root 0 0 100 100\n"
                                                 " a 0 10 100 60\n"
                                                 " b 0 70 100 60\n");
    EXPECT_EQ(scrolling->minScrollY, -30);
}

/// Notes its height at each layout, and may ask for another round while it is placed.
class Probe : public nui::Widget {
public:
    bool layout(std::uint32_t flags) override
    {
        heights += std::to_string(static_cast<int>(height)) + " ";
        return Widget::layout(flags);
    }
    void place() override
    {
        ++places;
        if (invalidations-- > 0)
            static_cast<nui::Container*>(parent)->invalidateLayout();
    }

    std::string heights;
    int places = 0;
    int invalidations = 0;
};

TEST_F(layout_test, a_weighted_child_is_first_estimated_without_the_padding)
{
    const auto root = nui::test::containerOf(R"({'class': 'Container', 'width': 10,
        'height': 200, 'padding': {'top': 10, 'bottom': 10}, 'children': [
            {'class': 'Widget', 'height': 50}, {'class': 'Widget', 'height': '25%'}]})");
    const auto probe = std::make_shared<Probe>();
    root->add(probe);
    root->layout(nui::layout_flag::First);
    EXPECT_EQ(probe->heights, "100 130 ");
}

TEST_F(layout_test, a_valid_tree_is_not_gone_through_again_unless_forced)
{
    const auto root =
        nui::test::containerOf(R"({'class': 'Container', 'width': 10, 'height': 20})");
    const auto probe = std::make_shared<Probe>();
    root->add(probe);
    EXPECT_TRUE(root->layout(nui::layout_flag::First));
    probe->heights.clear();
    EXPECT_TRUE(root->layout(0));
    EXPECT_EQ(probe->heights, "");
    root->layout(nui::layout_flag::Again);
    EXPECT_NE(probe->heights, "");
}

TEST_F(layout_test, placing_is_repeated_once_for_a_child_that_asks)
{
    const auto root =
        nui::test::containerOf(R"({'class': 'Container', 'width': 10, 'height': 20})");
    const auto probe = std::make_shared<Probe>();
    root->add(probe);
    probe->invalidations = 5;
    nui::test::layOut(*root);
    EXPECT_EQ(probe->places, 2);
}

// The height is asked by its number, whatever its unit.
TEST_F(layout_test, with_the_width_alone_asked_for_a_height_of_six_is_resolved_too)
{
    for (const float value : {6.0F, 7.0F}) {
        nui::Container container;
        container.widthMode = nui::Content;
        container.heightMode = nui::Px;
        container.heightValue = value;
        container.height = 1;
        container.layout(nui::layout_flag::Force | nui::layout_flag::ResolveOwnWidth);
        EXPECT_EQ(container.height, value == 6 ? 6 : 1);
    }
}

} // namespace
