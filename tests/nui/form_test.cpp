#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/widgets/container.h"
#include "nui/widgets/screen.h"
#include "support/nui/event_log.h"
#include "support/nui/running_toolkit.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using nui::engine;

class form_test : public testing::Test {
protected:
    form_test()
    {
        screen = toolkit.open(R"({'widgets': [{'class': 'Screen', 'id': 'screen',
            'windowWidth': 100, 'windowHeight': 100, 'children': [
            {'class': 'Container', 'name': 'form', 'form': true, 'children': [
                {'class': 'TextField', 'name': 'a'},
                {'class': 'Container', 'name': 'group', 'children': [
                    {'class': 'TextField', 'name': 'b'},
                    {'class': 'TextField', 'name': 'c'}]},
                {'class': 'TextButton', 'name': 'd'}]}]}]})");
        form = dynamic_cast<nui::Container*>(screen->findByName("form"));
        focus("a");
    }

    nui::WidgetPtr find(const char* name) { return screen->findByName(name)->shared_from_this(); }
    void focus(const char* name) { engine().setFocus(find(name)); }
    /// Who has the keyboard after the key.
    std::string after(std::int32_t key, std::uint16_t modifiers = 0)
    {
        toolkit.key(key, modifiers);
        return screen->focusedWidget->name;
    }

    nui::test::RunningToolkit toolkit;
    std::shared_ptr<nui::Screen> screen;
    nui::Container* form = nullptr;
};

TEST_F(form_test, tab_goes_round_in_the_order_of_the_tree_and_shift_goes_back)
{
    EXPECT_EQ(after(SDLK_TAB), "b");
    EXPECT_EQ(after(SDLK_TAB), "c");
    EXPECT_EQ(after(SDLK_TAB), "d");
    EXPECT_EQ(after(SDLK_TAB), "a");
    EXPECT_EQ(after(SDLK_TAB, KMOD_RSHIFT), "d");
    EXPECT_EQ(after(SDLK_TAB, KMOD_LSHIFT | KMOD_NUM), "c");
}

TEST_F(form_test, other_modifiers_leave_tab_alone)
{
    for (const int modifiers :
         {KMOD_LSHIFT | KMOD_RSHIFT, KMOD_LCTRL + 0, KMOD_LALT + 0, KMOD_RGUI + 0})
        EXPECT_EQ(after(SDLK_TAB, static_cast<std::uint16_t>(modifiers)), "a");
}

TEST_F(form_test, tab_passes_what_cannot_be_seen_or_used)
{
    find("group")->visibility = nui::visibility::Hidden;
    EXPECT_EQ(after(SDLK_TAB), "d");
    find("group")->visibility = nui::visibility::Visible;
    find("b")->setEnabled(false);
    find("c")->width = 0;
    focus("a");
    EXPECT_EQ(after(SDLK_TAB), "d");
    find("d")->setEnabled(false);
    focus("a");
    EXPECT_EQ(after(SDLK_TAB), "a");
}

TEST_F(form_test, return_activates_the_default_item_but_not_by_itself)
{
    nui::test::EventLog log;
    log.listen(*find("d"));
    form->form->setDefaultItem(find("d"));
    toolkit.keys({SDLK_RETURN, SDLK_KP_ENTER});
    EXPECT_EQ(log.take(), "0 d 1\n0 d 1\n");
    focus("d");
    (void)log.take();
    toolkit.key(SDLK_RETURN);
    EXPECT_EQ(log.take(), "0 d 1\n"); // its own doing, and once
}

TEST_F(form_test, a_widget_may_keep_its_keys_from_the_form)
{
    // The form listens behind the widget's own listeners, here after it was built anew.
    subscribe(
        *find("a"), nui::keyboard::Down, [](nui::WidgetEvent& event) { event.consume(); }, nullptr);
    form->buildForm();
    EXPECT_EQ(after(SDLK_TAB), "a");
}

TEST_F(form_test, a_clone_has_a_tab_order_of_its_own)
{
    const auto copy = std::dynamic_pointer_cast<nui::Container>(form->clone());
    form->visibility = nui::visibility::Collapsed;
    screen->add(copy);
    screen->markDirty();
    toolkit.frame();
    engine().setFocus(copy->findByName("d")->shared_from_this());
    toolkit.key(SDLK_TAB);
    EXPECT_EQ(screen->focusedWidget.get(), copy->findByName("a"));
}

TEST_F(form_test, a_form_within_the_form_takes_its_items_over)
{
    dynamic_cast<nui::Container&>(*find("group")).buildForm();
    focus("b");
    EXPECT_EQ(after(SDLK_TAB), "c");
    EXPECT_EQ(after(SDLK_TAB), "b");
    for (const char* const name : {"b", "c"})
        find(name)->setEnabled(false);
    focus("a");
    EXPECT_EQ(after(SDLK_TAB), "a");
}

TEST_F(form_test, items_outlive_their_form)
{
    const nui::WidgetPtr a = find("a");
    const nui::WidgetPtr loose = a->clone();
    form->form.reset();
    EXPECT_EQ(after(SDLK_TAB), "a");
    screen->add(loose);
    engine().setFocus(loose);
    toolkit.key(SDLK_TAB);
    EXPECT_EQ(screen->focusedWidget, loose);
}

} // namespace
