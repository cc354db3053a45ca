#include "nui/widgets/container.h"
#include "nui/widgets/pages_container.h"
#include "support/nui/layout.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <memory>
#include <random>
#include <string>

namespace {

using nui::Container;
using nui::Widget;
using nui::WidgetPtr;

/// Lays out all that is inside at each visit, also where its size alone is asked for: twice at
/// each level, so 2^n times n levels below the root.
class PlainContainer : public Container {
public:
    bool layout(std::uint32_t flags) override
    {
        return Container::layout(flags & ~nui::layout_flag::SizeOnly);
    }
};

/// So much area, in as few rows of 10 pixels as its width allows, like a text.
class Flowing : public Widget {
public:
    explicit Flowing(float length) : length_(length) {}

    void measure() override
    {
        ++measured;
        constexpr float Row = 10;
        if (widthMode == nui::Content)
            width = heightMode == nui::Content ? length_ : std::ceil(length_ * Row / height);
        if (heightMode == nui::Content)
            height = width > 0 ? Row * std::ceil(length_ / width) : -1;
        applyLimits();
    }

    static inline int measured = 0;

private:
    float length_;
};

/// A tree by chance, the same for the same seed, whatever its containers are.
class Trees {
public:
    using Make = std::function<std::shared_ptr<Container>()>;

    Trees(std::uint32_t seed, Make make) : random_(seed), make_(std::move(make)) {}

    std::shared_ptr<Container> tree()
    {
        std::shared_ptr<Container> root = make_();
        fill(*root, 0);
        for (const auto axis : {nui::Axis::X, nui::Axis::Y}) {
            const bool isContent = below(3) == 0;
            (axis == nui::Axis::X ? root->widthMode : root->heightMode) =
                isContent ? nui::Content : nui::Px;
            (axis == nui::Axis::X ? root->widthValue : root->heightValue) = 100.0F + pixels(150);
        }
        return root;
    }

private:
    static constexpr int Deepest = 6;

    int below(int limit) { return std::uniform_int_distribution(0, limit - 1)(random_); }

    float pixels(int limit) { return static_cast<float>(below(limit * 2)) / 2; }

    void setSize(nui::SizeMode& mode, float& value)
    {
        constexpr nui::SizeMode Modes[] = {nui::Content, nui::Content, nui::Content, nui::Weight,
                                           nui::Weight,  nui::Px,      nui::Percent, nui::Pt};
        mode = Modes[below(8)];
        value = mode == nui::Percent ? static_cast<float>(1 + below(12)) / 10
                : mode == nui::Weight || mode == nui::Content ? static_cast<float>(1 + below(3))
                                                              : pixels(80);
    }

    void setEdges(nui::Edges& edges)
    {
        for (float* const side : {&edges.left, &edges.top, &edges.right, &edges.bottom})
            *side = below(3) == 0 ? pixels(6) : 0;
        if (below(6) == 0) {
            edges.left = 0.1F;
            edges.leftMode = nui::Percent;
        }
    }

    void setKeys(Widget& widget)
    {
        constexpr std::uint32_t Visibilities[] = {
            nui::visibility::Visible, nui::visibility::Visible,    nui::visibility::Visible,
            nui::visibility::Visible, nui::visibility::Collapsed,  nui::visibility::Hidden,
            nui::visibility::Clipped, nui::visibility::Overlapping};
        setSize(widget.widthMode, widget.widthValue);
        setSize(widget.heightMode, widget.heightValue);
        setEdges(widget.margin);
        widget.visibility = Visibilities[below(8)];
        widget.gravity = static_cast<nui::Placement>(below(3));
        widget.alignment = static_cast<nui::Placement>(below(3));
        widget.maxWidth = below(5) == 0 ? pixels(90) : 0;
        widget.maxHeight = below(5) == 0 ? pixels(90) : 0;
    }

    void fill(Container& container, int depth)
    {
        setKeys(container);
        container.visibility = nui::visibility::Visible;
        setEdges(container.padding);
        container.layoutKind = static_cast<nui::LayoutKind>(below(4));
        const int count = 1 + below(3);
        for (int made = 0; made < count; ++made)
            container.add(child(depth + 1));
    }

    WidgetPtr child(int depth)
    {
        const int kind = depth == Deepest ? 9 : below(10);
        if (kind < 6) {
            const std::shared_ptr<Container> inner = make_();
            fill(*inner, depth);
            if (below(8) == 0)
                inner->visibility = nui::visibility::Collapsed;
            return inner;
        }
        WidgetPtr made;
        if (kind == 6) {
            const auto pages = std::make_shared<nui::PagesContainer>();
            const std::shared_ptr<Container> page = make_();
            fill(*page, depth);
            pages->add(page);
            pages->show(page);
            made = pages;
        } else if (kind == 7) {
            made = std::make_shared<Widget>(); // sized by content, its size is never known
        } else {
            made = std::make_shared<Flowing>(pixels(200));
        }
        setKeys(*made);
        return made;
    }

    std::mt19937 random_;
    Make make_;
};

class nested_layout_test : public testing::Test {
protected:
    nui::test::MeasuringEngine engine;
};

std::string outcome(Container& root)
{
    std::string text;
    for (const std::uint32_t flags : {nui::layout_flag::First, nui::layout_flag::Again, 0U}) {
        text += root.layout(flags) ? "known\n" : "unknown\n";
        text += nui::test::rectangles(root);
    }
    root.invalidateLayout();
    root.place();
    return text + nui::test::rectangles(root);
}

TEST_F(nested_layout_test, what_is_not_laid_out_twice_gets_the_same_rectangles)
{
    for (std::uint32_t seed = 0; seed < 1500; ++seed) {
        const auto plain = Trees(seed, [] { return std::make_shared<PlainContainer>(); }).tree();
        const auto tested = Trees(seed, [] { return std::make_shared<Container>(); }).tree();
        ASSERT_EQ(outcome(*tested), outcome(*plain)) << "seed " << seed;
    }
}

/// Containers in each other, `depth` of them, and a text in the last.
std::shared_ptr<Container> nested(int depth, const std::function<void(Container&, int)>& setKeys)
{
    auto root = std::make_shared<Container>();
    root->widthMode = root->heightMode = nui::Px;
    root->widthValue = root->heightValue = 900;
    Container* inner = root.get();
    for (int level = 1; level < depth; ++level) {
        const auto made = std::make_shared<Container>();
        setKeys(*made, level);
        inner->add(made);
        inner = made.get();
    }
    const auto text = std::make_shared<Flowing>(40.0F);
    text->widthMode = text->heightMode = nui::Content;
    inner->add(text);
    return root;
}

TEST_F(nested_layout_test, the_work_grows_with_the_levels_and_not_with_their_power)
{
    const auto measures = [](int depth, const std::function<void(Container&, int)>& setKeys) {
        auto root = nested(depth, setKeys);
        Flowing::measured = 0;
        nui::test::layOut(*root);
        return Flowing::measured;
    };
    const auto sizedByContent = [](Container& container, int level) {
        container.widthMode = container.heightMode = nui::Content;
        container.layoutKind = static_cast<nui::LayoutKind>(level % 2);
        container.padding.left = 1;
    };
    const auto weighted = [](Container& container, int /*level*/) { container.padding.top = 1; };
    const auto neverKnown = [&](Container& container, int level) {
        sizedByContent(container, level);
        const auto unknown = std::make_shared<Widget>();
        unknown->widthMode = unknown->heightMode = nui::Content;
        container.add(unknown);
    };
    for (const auto& setKeys : {std::function<void(Container&, int)>(sizedByContent),
                                std::function<void(Container&, int)>(weighted),
                                std::function<void(Container&, int)>(neverKnown)}) {
        EXPECT_LE(measures(200, setKeys), 10 * 200);
    }
}

} // namespace
