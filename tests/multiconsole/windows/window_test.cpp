#include "multiconsole/console_document.h"

#include "support/console_text.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace nrd::multiconsole {

namespace {

TEST(window, is_hidden_by_its_close_button_and_goes_with_its_document)
{
    test::console_text console("hidden");
    auto document = console_document::open("hidden");
    const HWND window = FindWindowW(nullptr, L"hidden");
    EXPECT_TRUE(IsWindowVisible(window));
    SendMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindowVisible(window));
    document->print(u"still taken\n");
    EXPECT_EQ(console.text(), "still taken\n");
    document.reset();
    EXPECT_FALSE(console.is_open());
}

TEST(window, text_is_read_only_and_loses_its_beginning_when_it_gets_too_long)
{
    test::console_text console("long");
    const auto document = console_document::open("long");
    const HWND control = GetWindow(FindWindowW(nullptr, L"long"), GW_CHILD);
    EXPECT_NE(GetWindowLongW(control, GWL_STYLE) & ES_READONLY, 0);
    for (const char16_t letter : std::u16string_view(u"abc")) {
        std::u16string lines;
        for (int i = 0; i < 1'300; ++i) {
            lines += std::u16string(98, letter) + u"\n";
        }
        document->print(lines);
    }
    document->print(u"last\n");
    const std::string text = console.text();
    EXPECT_EQ(text.find("aa"), std::string::npos);
    EXPECT_TRUE(text.ends_with("c\nlast\n"));
    EXPECT_GT(text.size(), 120'000U);
}

} // namespace

} // namespace nrd::multiconsole
