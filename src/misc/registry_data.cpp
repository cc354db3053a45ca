#include "misc/registry_data.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <stdexcept>

namespace nrd::misc {

namespace {

// At the places of their numbers.
constexpr const char* type_names[] = {"REG_NONE",
                                      "REG_SZ",
                                      "REG_EXPAND_SZ",
                                      "REG_BINARY",
                                      "REG_DWORD",
                                      "REG_DWORD_BIG_ENDIAN",
                                      "REG_LINK",
                                      "REG_MULTI_SZ",
                                      "REG_RESOURCE_LIST",
                                      "REG_FULL_RESOURCE_DESCRIPTOR",
                                      "REG_RESOURCE_REQUIREMENTS_LIST",
                                      "REG_QWORD"};

using bytes = std::vector<std::uint8_t>;

/// Units of two bytes; a half one at the end is dropped.
std::u16string units_of(const bytes& data)
{
    std::u16string units;
    for (std::size_t i = 0; i + 1 < data.size(); i += 2) {
        units += static_cast<char16_t>(data[i] | data[i + 1] << 8);
    }
    return units;
}

/// The texts of a list up to the empty one that ends it.
text32 list_text(const bytes& data)
{
    const std::u16string units = units_of(data);
    text32 text;
    for (std::size_t begin = 0; begin < units.size() && units[begin] != 0;) {
        const std::size_t end = std::min(units.find(u'\0', begin), units.size());
        text += text.empty() ? U"\"" : U", \"";
        text += to_text32(std::u16string_view(units).substr(begin, end - begin)) + U'"';
        begin = end + 1;
    }
    return text;
}

/// The digits of a number whose lowest byte comes first.
text32 number_text(const bytes& data)
{
    std::uint64_t number = 0;
    for (auto byte = data.rbegin(); byte != data.rend(); ++byte) {
        number = number << 8 | *byte;
    }
    return to_text32(std::to_string(number));
}

} // namespace

registry_data describe_data(std::uint32_t type, const bytes& data)
{
    registry_data result;
    result.type = type < std::size(type_names) ? type_names[type] : std::to_string(type);
    if (result.type == "REG_SZ" || result.type == "REG_EXPAND_SZ" || result.type == "REG_LINK") {
        const std::u16string units = units_of(data);
        result.text = to_text32(std::u16string_view(units).substr(0, units.find(u'\0')));
    } else if (result.type == "REG_MULTI_SZ") {
        result.text = list_text(data);
    } else if ((result.type == "REG_DWORD" && data.size() == 4) ||
               (result.type == "REG_QWORD" && data.size() == 8)) {
        result.text = number_text(data);
    } else if (result.type == "REG_DWORD_BIG_ENDIAN" && data.size() == 4) {
        result.text = number_text(bytes(data.rbegin(), data.rend()));
    } else {
        result.text = to_text32(to_hex(data));
    }
    return result;
}

std::uint32_t registry_type(std::string_view name)
{
    const auto* const named = std::find(std::begin(type_names), std::end(type_names), name);
    if (named != std::end(type_names)) {
        return static_cast<std::uint32_t>(named - type_names);
    }
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
    if (error != std::errc() || end != name.data() + name.size()) {
        throw std::invalid_argument("no type of registry values: " + std::string(name));
    }
    return number;
}

} // namespace nrd::misc
