#include "nui/reader/widget_registry.h"

#include "nui/widgets/container.h"
#include "support/nui/layout.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>

namespace {

using nui::createWidget;

class widget_registry_test : public testing::Test {
protected:
    nui::test::MeasuringEngine engine;
};

class Special : public nui::Cloneable<Special, nui::Widget> {
public:
    [[nodiscard]] const char* className() const override { return "Special"; }
};

std::string classMadeFor(const char* name)
{
    const nui::WidgetPtr widget = createWidget(name);
    return widget ? widget->className() : "none";
}

void registerSpecial(const char* name)
{
    nui::registerWidgetClass(name, std::make_unique<nui::DefaultWidgetFactory<Special>>());
}

TEST_F(widget_registry_test, every_class_of_the_toolkit_is_made_and_cloned_as_itself)
{
    std::istringstream names("Widget Container Image TextLabel TextButton ToggleButton TextField "
                             "Overlay SolidScrollbar SolidScrollbarChannel Slider SelectionList "
                             "DropDown ImageArray MultiStateButton NumberField Breadcrumbs "
                             "ProgressBar PagesContainer DefaultToolTip MoreButton "
                             "LinkTextButton ImageButton SelectableImage Screen IpAddressField "
                             "OkCancelButton ListBox NumberTextField");
    for (std::string name; names >> name;) {
        const nui::WidgetPtr widget = createWidget(name.c_str());
        ASSERT_TRUE(widget) << name;
        EXPECT_EQ(widget->className(), name);
        EXPECT_EQ(widget->clone()->className(), name);
    }
}

TEST_F(widget_registry_test, ascii_case_does_not_matter_and_unknown_names_make_nothing)
{
    EXPECT_EQ(classMadeFor("tExTlAbEl"), "TextLabel");
    EXPECT_EQ(classMadeFor("TextLabel2"), "none");
    EXPECT_EQ(classMadeFor(""), "none");
    EXPECT_EQ(classMadeFor(nullptr), "none");
}

TEST_F(widget_registry_test, the_first_registration_wins_also_against_a_name_of_equal_hash)
{
    registerSpecial("Slider");
    EXPECT_EQ(classMadeFor("Slider"), "Slider");

    // 33 times the first letter and the second one: 97 * 33 + 95 is 98 * 33 + 62.
    registerSpecial("own_a_");
    EXPECT_EQ(classMadeFor("OWN_A_"), "Special");
    EXPECT_EQ(classMadeFor("own_b>"), "Special");
    EXPECT_EQ(classMadeFor("own_b?"), "none");
}

} // namespace
