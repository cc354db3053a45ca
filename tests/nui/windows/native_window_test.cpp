#include "nui/native_window.h"

#include <SDL2/SDL.h>
#include <SDL2/SDL_syswm.h>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

namespace {

HWND nativeOf(SDL_Window* window)
{
    SDL_SysWMinfo info = {};
    SDL_VERSION(&info.version)
    SDL_GetWindowWMInfo(window, &info);
    return info.info.win.window;
}

class windows_native_window_test : public testing::Test {
protected:
    windows_native_window_test()
    {
        SDL_Init(SDL_INIT_VIDEO);
        window = SDL_CreateWindow("A window", 60, 70, 300, 200, SDL_WINDOW_HIDDEN);
        native = nativeOf(window);
    }

    ~windows_native_window_test() override
    {
        nui::setNativeMessageHook({});
        SDL_DestroyWindow(window);
    }

    SDL_Window* window = nullptr;
    HWND native = nullptr;
};

TEST_F(windows_native_window_test, only_the_minimise_box_of_the_style_is_replaced)
{
    const LONG before = GetWindowLongA(native, GWL_STYLE);
    nui::setMinimizeBoxStyle(window, 0);
    EXPECT_EQ(GetWindowLongA(native, GWL_STYLE), before & ~WS_MINIMIZEBOX);
    nui::setMinimizeBoxStyle(window, WS_MINIMIZEBOX);
    EXPECT_EQ(GetWindowLongA(native, GWL_STYLE), before | WS_MINIMIZEBOX);
}

TEST_F(windows_native_window_test, a_disabled_window_is_refused_input_by_the_system)
{
    nui::enableNativeWindow(window, false);
    EXPECT_EQ(IsWindowEnabled(native), FALSE);
    nui::enableNativeWindow(window, true);
    EXPECT_NE(IsWindowEnabled(native), FALSE);
}

TEST_F(windows_native_window_test, the_frame_counts_what_the_system_says_it_is_made_of)
{
    EXPECT_EQ(nui::frameHeight(),
              GetSystemMetrics(SM_CYSIZEFRAME) + GetSystemMetrics(SM_CYCAPTION) +
                  GetSystemMetrics(SM_CXPADDEDBORDER) + GetSystemMetrics(SM_CYSIZE));
    EXPECT_GT(nui::frameSizes(window).top, nui::frameSizes(window).bottom);
    EXPECT_TRUE(nui::isNativeWindow(window, native));
}

TEST_F(windows_native_window_test, a_menu_takes_its_room_and_tells_before_a_part_of_it_opens)
{
    const HMENU bar = CreateMenu();
    const HMENU part = CreatePopupMenu();
    AppendMenuW(part, MF_STRING, 1000, L"An entry");
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(part), L"A part");
    const int before = nui::frameSizes(window).top;
    std::vector<void*> opened;
    nui::attachNativeMenu(window, bar, [&](void* menu) { opened.push_back(menu); });
    EXPECT_EQ(GetMenu(native), bar);
    EXPECT_GT(nui::frameSizes(window).top, before);
    SendMessageW(native, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(part), 0);
    EXPECT_EQ(opened, std::vector<void*>{part});

    // Another one replaces it, and only the new one is told.
    std::vector<void*> second;
    nui::attachNativeMenu(window, bar, [&](void* menu) { second.push_back(menu); });
    SendMessageW(native, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(part), 0);
    EXPECT_EQ(opened.size(), 1U);
    EXPECT_EQ(second.size(), 1U);

    nui::attachNativeMenu(window, nullptr, {});
    SendMessageW(native, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(part), 0);
    EXPECT_EQ(GetMenu(native), nullptr);
    EXPECT_EQ(second.size(), 1U);
    DestroyMenu(bar);
}

TEST_F(windows_native_window_test, the_hook_sees_messages_with_their_numbers)
{
    std::vector<nui::NativeMessage> seen;
    nui::setNativeMessageHook([&](const nui::NativeMessage& message) {
        if (message.message == nui::native_message::Command) {
            seen.push_back(message);
        }
    });
    PostMessageW(native, WM_COMMAND, 1003, -5);
    SDL_PumpEvents();
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_EQ(seen[0].window, native);
    EXPECT_EQ(seen[0].wParam, 1003U);
    EXPECT_EQ(seen[0].lParam, -5);
    nui::setNativeMessageHook({});
    PostMessageW(native, WM_COMMAND, 1003, 0);
    SDL_PumpEvents();
    EXPECT_EQ(seen.size(), 1U);
}

TEST_F(windows_native_window_test, system_events_carry_the_message_that_they_stand_for)
{
    SDL_EventState(SDL_SYSWMEVENT, SDL_ENABLE);
    SDL_FlushEvent(SDL_SYSWMEVENT);
    SendMessageW(native, WM_SYSKEYUP, VK_F9, 7);
    std::vector<nui::NativeMessage> found;
    SDL_Event event;
    while (SDL_PollEvent(&event) != 0) {
        if (event.type == SDL_SYSWMEVENT) {
            const auto message = nui::nativeMessageOf(*event.syswm.msg);
            if (message && message->message == nui::native_message::SystemKeyUp) {
                found.push_back(*message);
            }
        }
    }
    SDL_EventState(SDL_SYSWMEVENT, SDL_IGNORE);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].window, native);
    EXPECT_EQ(found[0].wParam, static_cast<std::uintptr_t>(VK_F9));
    EXPECT_EQ(found[0].lParam, 7);
}

struct SeenBox {
    std::wstring title;
    std::wstring text;
    std::vector<int> buttons;
};

/// Looks at the message box that opens, and gives it the answer.
SeenBox answerBox(const wchar_t* title, int answer)
{
    HWND box = nullptr;
    for (int i = 0; i < 500 && box == nullptr; ++i) {
        Sleep(10);
        box = FindWindowW(L"#32770", title);
    }
    SeenBox seen;
    wchar_t text[100] = {};
    GetWindowTextW(box, text, 100);
    seen.title = text;
    GetDlgItemTextW(box, 0xFFFF, text, 100);
    seen.text = text;
    for (const int id : {IDOK, IDCANCEL, IDYES, IDNO}) {
        if (GetDlgItem(box, id) != nullptr && IsWindowVisible(GetDlgItem(box, id)) != FALSE) {
            seen.buttons.push_back(id);
        }
    }
    PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(answer), 0);
    return seen;
}

TEST_F(windows_native_window_test,
       a_message_box_has_the_buttons_asked_for_and_tells_which_was_chosen)
{
    const struct {
        std::uint32_t flags;
        int chosen;
        int answer;
        std::vector<int> buttons;
    } cases[] = {{0x10, IDOK, 0, {IDOK}},
                 {0x21, IDCANCEL, 1, {IDOK, IDCANCEL}},
                 {0x32, IDYES, 2, {IDYES, IDNO}},
                 {0x03, IDNO, 3, {IDCANCEL, IDYES, IDNO}},
                 {0x03, IDCANCEL, 1, {IDCANCEL, IDYES, IDNO}}};
    for (const auto& each : cases) {
        SeenBox seen;
        std::thread user([&] { seen = answerBox(L"Gr\u00F6\u00DFe \u5207", each.chosen); });
        const auto answer = nui::nativeMessageBox(nullptr, each.flags,
                                                  "Schlie\xC3\x9F"
                                                  "en?",
                                                  "Gr\xC3\xB6\xC3\x9F"
                                                  "e \xE5\x88\x87");
        user.join();
        EXPECT_EQ(answer, each.answer) << each.flags;
        EXPECT_EQ(seen.buttons, each.buttons) << each.flags;
        EXPECT_EQ(seen.text, L"Schlie\u00DF"
                             L"en?");
    }
}

} // namespace
