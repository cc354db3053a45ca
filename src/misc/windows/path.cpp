#include "misc/path.h"

namespace nrd::misc {

namespace {

// wchar_t is a UTF-16 unit here, so the two string types hold the same values.
path from_units(const std::u16string& units)
{
    return path(std::wstring(units.begin(), units.end()));
}

} // namespace

path to_path(std::u32string_view text)
{
    return from_units(to_utf16(text));
}

path to_path(std::string_view utf8)
{
    return from_units(to_utf16(utf8));
}

template <std::same_as<path> Path> text32 to_text32(const Path& p)
{
    const std::wstring& native = p.native();
    return to_text32(std::u16string(native.begin(), native.end()));
}

template text32 to_text32(const path& p);

} // namespace nrd::misc
