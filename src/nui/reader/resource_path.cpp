#include "nui/reader/resource_path.h"

namespace nui {

namespace {

bool isSeparator(char letter)
{
    return letter == '/' || letter == '\\';
}

} // namespace

bool isAbsoluteName(std::string_view name)
{
    return (!name.empty() && isSeparator(name.front())) || name.find(':') != name.npos;
}

std::string joinPath(std::string_view base, std::string_view name)
{
    if (base.empty() || name.empty() || isAbsoluteName(name))
        return std::string(name);
    std::string path(base);
    if (!isSeparator(path.back()))
        path += '/';
    return path.append(name);
}

} // namespace nui
