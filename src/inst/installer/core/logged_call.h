#pragma once

#include "misc/file_system.h"
#include "streams/installer_log.h"

#include <initializer_list>
#include <source_location>
#include <string_view>

namespace nrd::installer::core {

/// Makes a file-system call that answers by an error code, and logs it before and after under the
/// caller's position: "rename(a,b)", then "rename(a,b) returned ec == <the code's text>".
template <class Call>
misc::error_code logged_call(std::string_view name, std::initializer_list<misc::path> paths,
                             Call call,
                             const std::source_location& where = std::source_location::current())
{
    const std::string text = misc::describe_call(name, paths);
    installer_log(text, where);
    misc::error_code ec;
    call(ec);
    installer_log(text + " returned ec == " + misc::error_message(ec), where);
    return ec;
}

} // namespace nrd::installer::core
