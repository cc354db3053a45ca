#include "tools/setup_unattended/terminal.h"

#include <windows.h>

namespace nrd::tools {

std::size_t terminal_width()
{
    const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    CONSOLE_SCREEN_BUFFER_INFO info = {};
    DWORD mode = 0;
    // A console that does not know the escapes is given plain lines.
    if (GetConsoleScreenBufferInfo(output, &info) == FALSE ||
        GetConsoleMode(output, &mode) == FALSE ||
        (mode & ENABLE_VIRTUAL_TERMINAL_PROCESSING) == 0) {
        return 0;
    }
    return static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left + 1);
}

utf8_terminal::utf8_terminal() : code_page_(GetConsoleOutputCP())
{
    const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    SetConsoleOutputCP(CP_UTF8);
    if (GetConsoleMode(output, &mode_) != FALSE) {
        SetConsoleMode(output, mode_ | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
    }
}

utf8_terminal::~utf8_terminal()
{
    SetConsoleOutputCP(code_page_);
    if (mode_ != 0) {
        SetConsoleMode(GetStdHandle(STD_OUTPUT_HANDLE), mode_);
    }
}

} // namespace nrd::tools
