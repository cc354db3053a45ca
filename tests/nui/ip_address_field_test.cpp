#include "nui/widgets/ip_address_field.h"

#include "nui/engine/engine.h"
#include "nui/widgets/text_field.h"
#include "support/nui/control_test.h"
#include "support/nui/layout_folder.h"

#include <SDL_clipboard.h>
#include <SDL_keycode.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using nui::IpAddressField;

class ip_address_field_test : public nui::test::ControlTest {
protected:
    void openField(const std::string& keys = "")
    {
        open("{'class': 'IpAddressField', 'name': 'address', 'width': 200, 'height': 24" + keys +
             "}");
        field = &get<IpAddressField>("address");
        noteActivations("address", [this] { return "'" + field->address() + "'"; });
    }

    void type(const std::string& letters)
    {
        for (const char letter : letters)
            toolkit.type(std::string(1, letter));
    }

    IpAddressField* field = nullptr;
};

TEST_F(ip_address_field_test, an_address_is_typed_as_it_is_written)
{
    openField();
    focus("number0");
    type("192.168.0.1");
    EXPECT_EQ(taken(), "'192.168.0.1' ") << "there is none before the last number";
    EXPECT_EQ(focused(), "number3");
    type("7");
    EXPECT_EQ(taken(), "'192.168.0.17' ");
    type("9");
    EXPECT_EQ(taken(), "'192.168.0.179' ");
    type("x-");
    EXPECT_EQ(field->address(), "192.168.0.179");
}

TEST_F(ip_address_field_test,
       a_whole_address_may_come_in_one_event_and_the_field_hands_the_keyboard_on)
{
    openField();
    focus("address");
    EXPECT_EQ(focused(), "number0");
    toolkit.type("10.20.30.40");
    EXPECT_EQ(field->address(), "10.20.30.40");
    moveTo(*field, -48); // a dot
    toolkit.press();
    toolkit.release();
    EXPECT_TRUE(focused().starts_with("number"));
}

TEST_F(ip_address_field_test, no_number_is_above_255)
{
    openField(", 'address': '1.2.3.4'");
    focus("number1");
    get<nui::TextField>("number1").selectAll();
    type("999");
    EXPECT_EQ(field->address(), "1.255.3.4");
    EXPECT_EQ(focused(), "number2");
    type("8.9");
    EXPECT_EQ(field->address(), "1.255.8.9") << "what was there is written over";
}

TEST_F(ip_address_field_test, keys_lead_from_number_to_number)
{
    openField(", 'address': '10.20.30.40'");
    focus("number0");
    auto& first = get<nui::TextField>("number0");
    first.setCaret(1);
    toolkit.key(SDLK_RIGHT);
    EXPECT_EQ(focused(), "number0");
    toolkit.key(SDLK_RIGHT);
    EXPECT_EQ(focused(), "number1");
    EXPECT_EQ(get<nui::TextField>("number1").caret(), 0);
    toolkit.key(SDLK_LEFT);
    EXPECT_EQ(focused(), "number0");
    EXPECT_EQ(first.caret(), 2);
    toolkit.key(SDLK_TAB);
    get<nui::TextField>("number1").setCaret(0);
    toolkit.keys({SDLK_BACKSPACE, SDLK_BACKSPACE});
    EXPECT_EQ(field->address(), "1.20.30.40");
    type(".");
    EXPECT_EQ(focused(), "number1");
}

TEST_F(ip_address_field_test, a_whole_address_can_be_pasted)
{
    openField();
    focus("number2");
    SDL_SetClipboardText("8.08.255.0");
    toolkit.key(SDLK_v, KMOD_LCTRL);
    EXPECT_EQ(taken(), "'8.8.255.0' ");
    for (const char* const text : {"1.2.3", "1.2.3.4.5", "1.2.3.256", "a.b.c.d", "-1.2.3.4"}) {
        SDL_SetClipboardText(text);
        toolkit.key(SDLK_v, KMOD_LCTRL);
        EXPECT_EQ(field->address(), "8.8.255.0") << text;
    }
}

TEST_F(ip_address_field_test, the_program_sets_whole_addresses_in_silence)
{
    openField();
    EXPECT_TRUE(field->setAddress("1.2.3.4"));
    EXPECT_FALSE(field->setAddress("1.2.3"));
    EXPECT_EQ(field->address(), "1.2.3.4");
    EXPECT_TRUE(field->setAddress(""));
    EXPECT_EQ(field->address(), "");
    EXPECT_EQ(taken(), "");
    const nui::test::LayoutFolder folder;
    folder.write("bad.json", "{'widgets': [{'class': 'IpAddressField', 'address': '1.2'}]}");
    EXPECT_EQ(folder.faultsOf("bad.json"), "bad.json:1:53: \"address\" cannot be \"1.2\"\n");
}

TEST_F(ip_address_field_test, a_clone_has_an_address_of_its_own)
{
    openField(", 'address': '1.2.3.4'");
    const auto copy = addClone(*field);
    nui::engine().setFocus(copy->findByName("number2")->shared_from_this());
    dynamic_cast<nui::TextField&>(*copy->findByName("number2")).selectAll();
    type("77.9");
    EXPECT_EQ(copy->address(), "1.2.77.9");
    EXPECT_EQ(field->address(), "1.2.3.4");
}

} // namespace
