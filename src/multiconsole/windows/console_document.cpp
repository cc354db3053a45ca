#include "multiconsole/console_document.h"

#include "misc/text.h"

#include <future>
#include <mutex>
#include <thread>
#include <windows.h>

namespace nrd::multiconsole {

namespace {

constexpr UINT message_print = WM_APP;
constexpr UINT message_close = WM_APP + 1;

// The edit control takes this many units; what came first goes when it is full.
constexpr int text_limit = 1 << 20;

std::wstring wide(std::u16string_view text)
{
    return {text.begin(), text.end()};
}

/// An edit control breaks lines at CR LF only.
std::wstring with_windows_line_ends(std::u16string_view text)
{
    std::wstring result;
    for (const char16_t unit : text) {
        if (unit == u'\n') {
            result += L'\r';
        }
        result += static_cast<wchar_t>(unit);
    }
    return result;
}

/// Belongs to its thread, which makes the window, runs its messages and ends with it. Text comes
/// over as a posted message, so that who prints never waits for the window.
class window_document final : public console_document {
public:
    explicit window_document(const std::string& title)
    {
        std::promise<HWND> opened;
        std::future<HWND> window = opened.get_future();
        thread_ = std::thread([title, &opened] { run(title, opened); });
        window_ = window.get();
    }

    ~window_document() override
    {
        if (window_ != nullptr) {
            PostMessageW(window_, message_close, 0, 0);
        }
        thread_.join();
    }

    void print(std::u16string_view text) override
    {
        if (window_ == nullptr) {
            return; // posted to no window, a message would go to the caller's own thread
        }
        auto posted = std::make_unique<std::wstring>(with_windows_line_ends(text));
        if (PostMessageW(window_, message_print, 0, reinterpret_cast<LPARAM>(posted.get())) != 0) {
            static_cast<void>(posted.release()); // the window's thread takes it over
        }
    }

private:
    static void run(const std::string& title, std::promise<HWND>& opened)
    {
        register_class();
        const HWND window = CreateWindowExW(
            0, class_name, wide(misc::to_utf16(std::string_view(title))).c_str(),
            WS_OVERLAPPEDWINDOW | WS_VISIBLE, CW_USEDEFAULT, CW_USEDEFAULT, 800, 500, nullptr,
            nullptr, GetModuleHandleW(nullptr), nullptr);
        opened.set_value(window);
        if (window == nullptr) {
            return;
        }
        MSG message;
        while (GetMessageW(&message, nullptr, 0, 0) > 0) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }

    static void register_class()
    {
        WNDCLASSW window_class = {};
        window_class.lpfnWndProc = handle;
        window_class.hInstance = GetModuleHandleW(nullptr);
        window_class.lpszClassName = class_name;
        RegisterClassW(&window_class);
    }

    static LRESULT CALLBACK handle(HWND window, UINT message, WPARAM word, LPARAM value)
    {
        const HWND text = GetWindow(window, GW_CHILD);
        switch (message) {
        case WM_CREATE:
            make_text_control(window);
            return 0;
        case WM_SIZE:
            MoveWindow(text, 0, 0, LOWORD(value), HIWORD(value), TRUE);
            return 0;
        case message_print:
            append(text, *std::unique_ptr<std::wstring>(reinterpret_cast<std::wstring*>(value)));
            return 0;
        case WM_CLOSE:
            ShowWindow(window, SW_HIDE); // the document stays open until its owner closes it
            return 0;
        case message_close:
            DestroyWindow(window);
            return 0;
        case WM_DESTROY:
            PostQuitMessage(0);
            return 0;
        default:
            return DefWindowProcW(window, message, word, value);
        }
    }

    static void make_text_control(HWND window)
    {
        const HWND text = CreateWindowExW(
            0, L"EDIT", L"",
            WS_CHILD | WS_VISIBLE | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL, 0, 0,
            0, 0, window, nullptr, GetModuleHandleW(nullptr), nullptr);
        SendMessageW(text, EM_SETLIMITTEXT, text_limit, 0);
    }

    static void append(HWND text, const std::wstring& added)
    {
        const int length = GetWindowTextLengthW(text);
        if (length + static_cast<int>(added.size()) > text_limit) {
            SendMessageW(text, EM_SETSEL, 0, length / 2);
            SendMessageW(text, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L""));
        }
        const int end = GetWindowTextLengthW(text);
        SendMessageW(text, EM_SETSEL, static_cast<WPARAM>(end), end);
        SendMessageW(text, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(added.c_str()));
    }

    static constexpr const wchar_t* class_name = L"nrd_console_document";

    std::thread thread_;
    HWND window_ = nullptr;
};

} // namespace

std::unique_ptr<console_document> console_document::open(const std::string& title)
{
    return std::make_unique<window_document>(title);
}

} // namespace nrd::multiconsole
