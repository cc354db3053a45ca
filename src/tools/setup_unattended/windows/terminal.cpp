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

std::shared_ptr<void> use_utf8_terminal()
{
    const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    const UINT code_page = GetConsoleOutputCP();
    DWORD mode = 0;
    const bool is_console = GetConsoleMode(output, &mode) != FALSE;
    SetConsoleOutputCP(CP_UTF8);
    if (is_console) {
        SetConsoleMode(output, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
    }
    return {output, [code_page, mode, is_console](void* console) {
                SetConsoleOutputCP(code_page);
                if (is_console) {
                    SetConsoleMode(console, mode);
                }
            }};
}

void outlive_readers()
{
    // Windows answers such writing with an error and nothing more.
}

} // namespace nrd::tools
