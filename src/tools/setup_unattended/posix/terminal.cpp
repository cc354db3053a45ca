#include "tools/setup_unattended/terminal.h"

#include <csignal>
#include <sys/ioctl.h>
#include <unistd.h>

namespace nrd::tools {

std::size_t terminal_width()
{
    if (isatty(STDOUT_FILENO) == 0) {
        return 0;
    }
    winsize size = {};
    const bool known = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return known ? size.ws_col : 80;
}

std::shared_ptr<void> use_utf8_terminal()
{
    return nullptr; // terminals here take both as they are
}

void outlive_readers()
{
    std::signal(SIGPIPE, SIG_IGN);
}

} // namespace nrd::tools
