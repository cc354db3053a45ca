#include "nui/text/font_file.h"

#include "nui/reader/resource_file.h"

#include <charconv>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace nui {

namespace {

// Sizes of the records of a font file; all numbers in it have their highest byte first.
constexpr std::size_t CollectionHeader = 12;
constexpr std::size_t CountOfFaces = 8; ///< place in the header
constexpr std::size_t OffsetSize = 4;
constexpr std::size_t DirectoryHeader = 12;
constexpr std::size_t CountOfTables = 4; ///< place in the header
constexpr std::size_t TableRecord = 16;
constexpr std::size_t TableOffset = 8; ///< place in the record
constexpr std::size_t TableLength = 12;
constexpr std::size_t TableAlignment = 4;
constexpr std::string_view CollectionTag = "ttcf";

/// Reads within the file alone.
class FontBytes {
public:
    explicit FontBytes(std::string_view bytes) : bytes_(bytes) {}

    [[nodiscard]] std::optional<std::size_t> number(std::size_t place, std::size_t size) const
    {
        const std::string_view digits = piece(place, size);
        if (digits.size() != size)
            return std::nullopt;
        std::size_t value = 0;
        for (const char digit : digits)
            value = value << 8U | static_cast<unsigned char>(digit);
        return value;
    }
    /// Shorter if the file ends before.
    [[nodiscard]] std::string_view piece(std::size_t place, std::size_t size) const
    {
        return place < bytes_.size() ? bytes_.substr(place, size) : std::string_view();
    }

private:
    std::string_view bytes_;
};

void setNumber(std::string& bytes, std::size_t place, std::size_t value)
{
    for (std::size_t byte = 0; byte < OffsetSize; ++byte)
        bytes.at(place + byte) = static_cast<char>(value >> 8U * (OffsetSize - 1 - byte) & 0xFFU);
}

} // namespace

std::string faceOfCollection(const std::string& collection, std::size_t index)
{
    const FontBytes bytes(collection);
    const std::optional<std::size_t> count = bytes.number(CountOfFaces, OffsetSize);
    if (bytes.piece(0, CollectionTag.size()) != CollectionTag || !count || index >= *count)
        return {};
    const std::optional<std::size_t> directory =
        bytes.number(CollectionHeader + index * OffsetSize, OffsetSize);
    if (!directory)
        return {};
    const std::optional<std::size_t> tables = bytes.number(*directory + CountOfTables, 2);
    if (!tables)
        return {};

    const std::size_t headSize = DirectoryHeader + *tables * TableRecord;
    std::string face(bytes.piece(*directory, headSize));
    if (face.size() != headSize)
        return {};
    for (std::size_t table = 0; table < *tables; ++table) {
        const std::size_t record = DirectoryHeader + table * TableRecord;
        const std::size_t offset =
            FontBytes(face).number(record + TableOffset, OffsetSize).value_or(face.npos);
        const std::size_t length =
            FontBytes(face).number(record + TableLength, OffsetSize).value_or(face.npos);
        const std::string_view content = bytes.piece(offset, length);
        // Tables that overlap would make a small file a huge face.
        if (content.size() != length || face.size() + length > collection.size() + headSize)
            return {};
        setNumber(face, record + TableOffset, face.size());
        face += content;
        face.resize((face.size() + TableAlignment - 1) / TableAlignment * TableAlignment);
    }
    return face;
}

std::string fontFileContent(const std::string& path)
{
    const std::size_t mark = path.rfind('?');
    if (mark == path.npos)
        return contentOf(path);
    std::size_t index = 0;
    const char* const end = path.data() + path.size();
    const auto [stop, error] = std::from_chars(path.data() + mark + 1, end, index);
    if (error != std::errc() || stop != end)
        return contentOf(path);
    const std::string file = contentOf(path.substr(0, mark));
    return index == 0 ? file : faceOfCollection(file, index);
}

} // namespace nui
