#include "nui/text/font.h"

#include "misc/utf8.h"

#include <stdexcept>

namespace nui {

float Font::getLineHeight(std::int16_t /*size*/, std::int32_t /*lines*/)
{
    return 0;
}

float Font::getTextWidth(const std::string& /*text*/, std::int16_t /*size*/)
{
    throw std::logic_error("This font does not tell the width of a text.");
}

std::int32_t Font::indexAtX(const std::string& /*text*/, std::int16_t /*size*/, float /*x*/)
{
    throw std::logic_error("This font does not tell the place of a character.");
}

float Font::xAtIndex(const std::string& text, std::int16_t size, std::int32_t index)
{
    std::size_t end = 0;
    for (; index > 0 && end < text.size(); --index)
        nrd::misc::next_code_point(text, end);
    return end == 0 ? 0 : getTextWidth(text.substr(0, end), size);
}

} // namespace nui
