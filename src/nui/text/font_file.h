#pragma once

#include <string>

namespace nui {

/// The bytes of a font file with one face, for a path that may end in "?" and the index of a face
/// in a collection. Empty if there is no such face. The path is UTF-8.
[[nodiscard]] std::string fontFileContent(const std::string& path);

/// The face of a collection as a file of its own; empty if there is none, or the collection is
/// damaged.
[[nodiscard]] std::string faceOfCollection(const std::string& collection, std::size_t index);

} // namespace nui
