#pragma once

#include <rapidjson/document.h>

#include <cstddef>
#include <string>

namespace nui {

using Json = rapidjson::Value;

/// A JSON file in memory; its values live as long as this object. Text behind the root makes it
/// no JSON.
class JsonFile {
public:
    /// `path` is UTF-8.
    explicit JsonFile(const std::string& path);

    [[nodiscard]] bool wasOpened() const { return opened_; }
    [[nodiscard]] bool isValid() const { return opened_ && !document_.HasParseError(); }
    [[nodiscard]] const Json& root() const { return document_; }
    /// Of a file that is not valid.
    [[nodiscard]] const char* errorText() const;
    [[nodiscard]] std::size_t errorOffset() const { return document_.GetErrorOffset(); }

private:
    static constexpr std::size_t PoolBlock = 65536;

    bool opened_ = false;
    bool beginsWithMark_ = false; ///< of UTF-8, which editors add and JSON does not have
    rapidjson::MemoryPoolAllocator<> pool_{PoolBlock};
    rapidjson::Document document_{&pool_};
};

} // namespace nui
