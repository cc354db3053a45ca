#include "nui/text/font_size.h"

#include "nui/engine/engine.h"

#include <algorithm>

namespace nui {

std::int32_t effectiveFontSize(std::int16_t size)
{
    if (size < 0)
        return -std::int32_t{size};
    const std::int32_t offset = Engine::exists() ? engine().fonts.fontSizeOffset : 0;
    return std::max(size + offset, 1);
}

} // namespace nui
