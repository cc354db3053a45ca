#include "tools/setup_unattended/terminal.h"

#include <windows.h>

namespace nrd::tools {

std::size_t terminal_width()
{
    const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    CONSOLE_SCREEN_BUFFER_INFO info = {};
    if (GetConsoleScreenBufferInfo(output, &info) == FALSE) {
        return 0;
    }
    return static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left + 1);
}

void use_utf8_terminal()
{
    SetConsoleOutputCP(CP_UTF8);
}

} // namespace nrd::tools
