#include "nui/reader/json_places.h"

#include "nui/reader/resource_file.h"

#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

#include <algorithm>
#include <limits>
#include <string_view>
#include <vector>

namespace nui {

namespace {

constexpr std::size_t Nowhere = std::numeric_limits<std::size_t>::max();

/// Notes where each value and each name begins, in the order of the text. The parser tells of
/// a token when it has read it, so a beginning is looked for behind the token before.
class Offsets : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, Offsets> {
public:
    explicit Offsets(const std::string& text) : text_(text), stream_(text.data(), text.size())
    {
        rapidjson::Reader().Parse<rapidjson::kParseIterativeFlag>(stream_, *this);
    }

    /// Names, texts, numbers and words.
    bool Default()
    {
        begin();
        end_ = stream_.Tell();
        return true;
    }
    bool Key(const char* /*name*/, rapidjson::SizeType /*length*/, bool /*copy*/)
    {
        return Default();
    }
    bool StartObject() { return bracket(); }
    bool StartArray() { return bracket(); }
    bool EndObject(rapidjson::SizeType /*count*/) { return closingBracket(); }
    bool EndArray(rapidjson::SizeType /*count*/) { return closingBracket(); }

    [[nodiscard]] std::vector<std::size_t> take() { return std::move(begins_); }

private:
    void skipToToken()
    {
        end_ = std::min(text_.find_first_not_of(" \t\r\n,:", end_), text_.size());
    }
    void begin()
    {
        skipToToken();
        begins_.push_back(end_);
    }
    // The parser stands in front of or behind a bracket.
    bool bracket()
    {
        begin();
        ++end_;
        return true;
    }
    bool closingBracket()
    {
        skipToToken();
        ++end_;
        return true;
    }

    const std::string& text_;
    rapidjson::MemoryStream stream_;
    std::size_t end_ = 0; ///< of the last token
    std::vector<std::size_t> begins_;
};

/// The document's values and names in the order of the text.
std::vector<const Json*> inOrder(const Json& root)
{
    std::vector<const Json*> all;
    std::vector<const Json*> waiting{&root};
    while (!waiting.empty()) {
        const Json* const value = waiting.back();
        waiting.pop_back();
        all.push_back(value);
        const std::size_t count = waiting.size();
        if (value->IsObject()) {
            for (const auto& member : value->GetObject()) {
                waiting.push_back(&member.name);
                waiting.push_back(&member.value);
            }
        } else if (value->IsArray()) {
            for (const Json& item : value->GetArray())
                waiting.push_back(&item);
        }
        std::reverse(waiting.begin() + static_cast<std::ptrdiff_t>(count), waiting.end());
    }
    return all;
}

} // namespace

JsonPlaces::JsonPlaces(const std::string& path) : text_(contentOf(path)) {}

JsonPlaces::JsonPlaces(const std::string& path, const Json& root) : JsonPlaces(path)
{
    const std::vector<const Json*> values = inOrder(root);
    const std::vector<std::size_t> begins = Offsets(text_).take();
    // Another text by now: nothing is known of it.
    if (values.size() != begins.size())
        return;
    for (std::size_t index = 0; index < values.size(); ++index)
        offsets_.emplace(values[index], begins[index]);
}

std::size_t JsonPlaces::offsetOf(const Json& value) const
{
    const auto found = offsets_.find(&value);
    return found == offsets_.end() ? Nowhere : found->second;
}

JsonPlaces::Place JsonPlaces::placeAt(std::size_t offset) const
{
    if (offset == Nowhere)
        return {};
    const std::string_view before = std::string_view(text_).substr(0, offset);
    Place place{1, 1};
    for (const char byte : before) {
        const bool continuesCharacter = (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
        if (byte == '\n')
            place = {place.line + 1, 1};
        else if (!continuesCharacter)
            ++place.column;
    }
    return place;
}

} // namespace nui
