#include "nui/reader/resource_path.h"

#include <algorithm>

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
    const std::size_t begin = path.size();
    path.append(name);
    std::replace(path.begin() + static_cast<std::ptrdiff_t>(begin), path.end(), '\\', '/');
    return path;
}

} // namespace nui
