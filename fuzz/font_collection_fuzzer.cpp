// The first byte of the input is the index of a face, the rest a font collection. The face is a
// font file whose tables lie within it.

#include "check.h"
#include "nui/text/font_file.h"

#include <cstdint>
#include <string>

namespace {

std::size_t number(const std::string& bytes, std::size_t place, std::size_t size)
{
    std::size_t value = 0;
    for (std::size_t i = 0; i < size; ++i) {
        value = value * 256 + static_cast<unsigned char>(bytes.at(place + i));
    }
    return value;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    if (size == 0) {
        return 0;
    }
    const std::string collection(reinterpret_cast<const char*>(data) + 1, size - 1);
    const std::string face = nui::faceOfCollection(collection, data[0]);
    if (face.empty()) {
        return 0;
    }
    // The directory once more, and up to three bytes that fill the last table up.
    check(face.size() <= 2 * collection.size() + 3, "no face is much larger than its collection");
    const std::size_t tables = number(face, 4, 2);
    for (std::size_t table = 0; table < tables; ++table) {
        const std::size_t offset = number(face, 12 + table * 16 + 8, 4);
        const std::size_t length = number(face, 12 + table * 16 + 12, 4);
        check(offset >= 12 + tables * 16 && offset + length <= face.size(),
              "tables lie behind the directory, in the file");
    }
    return 0;
}
