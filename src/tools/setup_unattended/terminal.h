#pragma once

#include <cstddef>

namespace nrd::tools {

/// Columns of the terminal that standard output goes to; 0 if it goes elsewhere.
std::size_t terminal_width();

/// Makes the terminal take UTF-8 and the escape that clears a line, while it lives.
class utf8_terminal {
public:
    utf8_terminal();
    ~utf8_terminal();
    utf8_terminal(const utf8_terminal&) = delete;
    utf8_terminal& operator=(const utf8_terminal&) = delete;

private:
    unsigned code_page_ = 0;
    unsigned long mode_ = 0;
};

} // namespace nrd::tools
