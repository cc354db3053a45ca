#include "nui/widgets/type_ahead.h"

#include "misc/text.h"
#include "nui/engine/engine.h"

namespace nui {

namespace {

constexpr std::uint64_t Pause = 1000; ///< milliseconds

} // namespace

bool TypeAhead::isRunning() const
{
    return !text_.empty() && engine().now() < end_;
}

bool TypeAhead::add(const std::string& typed)
{
    if (!isRunning())
        text_.clear();
    if (typed.empty() || (text_.empty() && typed == " "))
        return false;
    std::string letters = typed;
    nrd::misc::to_lower(letters);
    text_ += letters;
    end_ = engine().now() + Pause;
    return true;
}

std::string TypeAhead::repeatedLetter() const
{
    const std::u32string letters = nrd::misc::to_text32(text_);
    const bool isRepeated =
        letters.size() > 1 && letters.find_first_not_of(letters.front()) == letters.npos;
    return isRepeated ? nrd::misc::to_utf8(letters.substr(0, 1)) : std::string();
}

} // namespace nui
