#include "multiconsole/console_document.h"

#include "misc/text.h"

#include <future>
#include <mutex>
#include <thread>
#include <utility>
#include <windows.h>

namespace nrd::multiconsole {

namespace {

constexpr UINT message_print = WM_APP;
constexpr UINT message_close = WM_APP + 1;

// The edit control takes this many units; what came first goes when it is full.
constexpr int text_limit = 1 << 18;

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

/// The window belongs to a thread of the document's own, which makes it, runs its messages and ends
/// with it. Text waits here until that thread takes it, so that who prints never waits for the
/// window.
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
        // Sent, not posted: a queue that is full takes no more messages, and the thread would not
        // end. What is still posted goes with the window.
        if (window_ != nullptr) {
            SendMessageW(window_, message_close, 0, 0);
        }
        thread_.join();
    }

    void print(std::u16string_view text) override
    {
        const std::lock_guard lock(mutex_);
        pending_ += with_windows_line_ends(text);
        // One message is under way at a time, however much is printed; one that a full queue did
        // not take is posted again with the next text. Posted to no window, it would go to the
        // caller's own thread.
        if (window_ != nullptr && !is_posted_) {
            is_posted_ =
                PostMessageW(window_, message_print, 0, reinterpret_cast<LPARAM>(this)) != FALSE;
        }
    }

private:
    static void run(const std::string& title, std::promise<HWND>& opened)
    {
        register_class();
        const HWND window =
            CreateWindowExW(0, class_name, wide(misc::to_utf16(std::string_view(title))).c_str(),
                            WS_OVERLAPPEDWINDOW | WS_VISIBLE, CW_USEDEFAULT, CW_USEDEFAULT, 800,
                            500, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
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
            append(text, reinterpret_cast<window_document*>(value)->take_pending());
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

    std::wstring take_pending()
    {
        const std::lock_guard lock(mutex_);
        is_posted_ = false;
        return std::exchange(pending_, {});
    }

    static void make_text_control(HWND window)
    {
        const HWND text = CreateWindowExW(
            0, L"EDIT", L"",
            WS_CHILD | WS_VISIBLE | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL, 0, 0,
            0, 0, window, nullptr, GetModuleHandleW(nullptr), nullptr);
        SendMessageW(text, EM_SETLIMITTEXT, text_limit, 0);
    }

    static void append(HWND text, std::wstring added)
    {
        const int length = GetWindowTextLengthW(text);
        if (length + static_cast<int>(added.size()) > text_limit) {
            const bool fills_half = added.size() > text_limit / 2;
            added.erase(0, fills_half ? added.size() - text_limit / 2 : 0);
            SendMessageW(text, EM_SETSEL, 0, fills_half ? length : length / 2);
            SendMessageW(text, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L""));
        }
        const int end = GetWindowTextLengthW(text);
        SendMessageW(text, EM_SETSEL, static_cast<WPARAM>(end), end);
        SendMessageW(text, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(added.c_str()));
    }

    static constexpr const wchar_t* class_name = L"nrd_console_document";

    std::mutex mutex_;
    std::wstring pending_;
    bool is_posted_ = false; ///< the message that makes the window take what is pending
    std::thread thread_;
    HWND window_ = nullptr;
};

} // namespace

std::unique_ptr<console_document> console_document::open(const std::string& title)
{
    return std::make_unique<window_document>(title);
}

} // namespace nrd::multiconsole
