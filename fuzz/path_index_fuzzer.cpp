// The input is a path index as some other program may have left it.

#include "check.h"
#include "inst/installer/core/path_index.h"

#include <sstream>
#include <string>

namespace {

std::string rewrite(const std::string& text)
{
    std::istringstream in(text);
    std::ostringstream out;
    nrd::installer::core::write_path_index(nrd::installer::core::read_path_index(in), out);
    return out.str();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const std::string once = rewrite({reinterpret_cast<const char*>(data), size});
    // One more carriage return may go from a line's end each time; but for that nothing changes.
    if (once.find('\r') == once.npos) {
        check(rewrite(once) == once, "what was written is read as it was meant");
    }
    return 0;
}
