#include "nui/reader/nui_reader.h"

namespace nui {

bool NuiReader::readSizeValue(float& out, const char* key)
{
    Size size;
    if (!readSize(size, key))
        return false;
    out = resolveEdge(size, 0);
    return true;
}

} // namespace nui
