#include "support/console_text.h"

#include "misc/text.h"

#include <windows.h>

namespace nrd::test {

namespace {

HWND find_document(const std::string& title)
{
    const std::u16string wide = misc::to_utf16(title);
    return FindWindowW(L"nrd_console_document", reinterpret_cast<const wchar_t*>(wide.c_str()));
}

/// Returns when the control has taken all messages that were posted before: what is posted last,
/// here another margin, comes to pass last.
void drain(HWND control)
{
    const auto margin = [&] { return LOWORD(SendMessageW(control, EM_GETMARGINS, 0, 0)); };
    const WORD wanted = margin() == 3 ? 5 : 3;
    PostMessageW(control, EM_SETMARGINS, EC_LEFTMARGIN, wanted);
    while (margin() != wanted) {
        Sleep(1);
    }
}

} // namespace

console_text::console_text(std::string title) : title_(std::move(title)) {}

console_text::~console_text() = default;

bool console_text::is_open() const
{
    return find_document(title_) != nullptr;
}

std::string console_text::text()
{
    const HWND control = GetWindow(find_document(title_), GW_CHILD);
    if (control == nullptr) {
        return "no window";
    }
    drain(control);
    const LRESULT length = SendMessageW(control, WM_GETTEXTLENGTH, 0, 0);
    std::u16string wide(static_cast<std::size_t>(length) + 1, u'\0');
    SendMessageW(control, WM_GETTEXT, wide.size(), reinterpret_cast<LPARAM>(wide.data()));
    wide.pop_back();
    std::erase(wide, u'\r');
    return misc::to_utf8(wide);
}

} // namespace nrd::test
