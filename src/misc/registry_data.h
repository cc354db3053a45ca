#pragma once

#include "misc/text.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace nrd::misc {

/// What a registry value holds, for people to read.
struct registry_data {
    std::string type; ///< "REG_SZ", "REG_DWORD", ...; the number of a type that has no name
    /// Of a text its words, of a number its decimal digits, of a list its texts in quotation marks,
    /// and of all else the bytes in hexadecimal.
    text32 text;

    [[nodiscard]] bool is_plain_text() const { return type == "REG_SZ"; }
    friend bool operator==(const registry_data&, const registry_data&) = default;
};

/// `type` is the system's number. Bytes that are not what the type promises are told as bytes.
registry_data describe_data(std::uint32_t type, const std::vector<std::uint8_t>& bytes);

/// The number of a type by its name or its own digits. Throws std::invalid_argument for neither.
std::uint32_t registry_type(std::string_view name);

} // namespace nrd::misc
