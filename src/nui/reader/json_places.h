#pragma once

#include "nui/reader/json_file.h"

#include <cstddef>
#include <string>
#include <unordered_map>

namespace nui {

/// Where the values and the names of a JSON document stand in its text. For authors' tools: the
/// text is read once more to find out.
class JsonPlaces {
public:
    /// From 1, columns in characters; 0 when the value is none of the document's.
    struct Place {
        int line = 0;
        int column = 0;
    };

    /// Knows the text only.
    explicit JsonPlaces(const std::string& path);
    /// `root` is what the file was parsed to.
    JsonPlaces(const std::string& path, const Json& root);

    /// In bytes from the start; what is none of the document's comes behind all.
    [[nodiscard]] std::size_t offsetOf(const Json& value) const;
    [[nodiscard]] Place placeAt(std::size_t offset) const;

private:
    std::string text_;
    std::unordered_map<const Json*, std::size_t> offsets_;
};

} // namespace nui
