#pragma once

#include "nui/reader/layout_loader.h"
#include "nui/reader/nui_reader.h"

#include <map>
#include <string>

namespace nui::test {

/// An empty object, and a record of the keys that were asked for, each with what its value must
/// be: "size", "color", "enum Start Center End", ...
class RecordingReader : public NuiReader {
public:
    RecordingReader() : NuiReader(pack_, loader_) {}

    [[nodiscard]] const std::map<std::string, std::string>& keys() const { return keys_; }

    [[nodiscard]] bool has(const char* key) override { return note(key, "anything"); }
    bool readString(std::string& /*out*/, const char* key, bool /*overridable*/) override
    {
        return note(key, "string");
    }
    bool readSize(Size& /*size*/, const char* key) override { return note(key, "size"); }
    bool readPoint(Point& /*out*/, const char* key) override { return note(key, "point"); }
    bool readFloatList(std::vector<float>& /*out*/, const char* key) override
    {
        return note(key, "numbers");
    }
    bool readStringList(std::vector<std::string>& /*out*/, const char* key) override
    {
        return note(key, "strings");
    }
    bool readPointOrAuto(Point& /*out*/, const char* key) override
    {
        return note(key, "pointOrAuto");
    }
    bool readEnum(std::uint32_t& out, const char* key, const char* const* table) override;
    bool readColor(Color& out, const char* colorKey, const char* alphaKey) override;
    bool readFloat(float& /*out*/, const char* key) override { return note(key, "number"); }
    bool readInt(std::int32_t& /*out*/, const char* key) override { return note(key, "integer"); }
    bool readUnsigned(std::uint32_t& /*out*/, const char* key) override
    {
        return note(key, "integer");
    }
    bool readBool(bool& /*out*/, const char* key) override { return note(key, "boolean"); }
    bool readEdges(Edges& /*out*/, const char* key) override { return note(key, "edges"); }
    bool readEdgesHere(Edges& out) override;
    bool readBorder(BorderColors& /*out*/, const char* key) override { return note(key, "border"); }
    bool readBorderHere(BorderColors& out) override;
    [[nodiscard]] const char* className() override { return nullptr; }
    [[nodiscard]] std::unique_ptr<NuiReader> firstIn(const char* key) override;
    [[nodiscard]] std::unique_ptr<NuiReader> nextItem() override { return nullptr; }
    [[nodiscard]] WidgetPtr templateWidget() override { return nullptr; }
    [[nodiscard]] PopupMenuPtr menuNamed(const std::string& /*id*/) override { return nullptr; }
    bool readTemplateRef(WidgetPtr& /*out*/, const char* key, bool* /*isBack*/) override
    {
        return note(key, "reference");
    }
    [[nodiscard]] WidgetPtr widgetRefHere() override { return nullptr; }
    [[nodiscard]] PopupMenuPtr menuRefHere() override { return nullptr; }

private:
    bool note(const char* key, const std::string& kind);

    WidgetPack pack_;
    LayoutLoader loader_{"none"};
    std::map<std::string, std::string> keys_;
};

} // namespace nui::test
