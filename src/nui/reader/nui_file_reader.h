#pragma once

#include "nui/reader/json_file.h"
#include "nui/reader/nui_reader.h"

namespace nui {

class LayoutDiagnostics;

/// Reads from a value of a layout file, which must outlive it.
class NuiFileReader : public NuiReader {
public:
    /// `diagnostics` is null while nobody listens for faults.
    NuiFileReader(WidgetPack& pack, LayoutLoader& loader, const Json& value,
                  LayoutDiagnostics* diagnostics);

    [[nodiscard]] bool has(const char* key) override;
    bool readString(std::string& out, const char* key, bool overridable) override;
    bool readSize(Size& size, const char* key) override;
    bool readPoint(Point& out, const char* key) override;
    bool readFloatList(std::vector<float>& out, const char* key) override;
    bool readStringList(std::vector<std::string>& out, const char* key) override;
    bool readPointOrAuto(Point& out, const char* key) override;
    bool readEnum(std::uint32_t& out, const char* key, const char* const* table) override;
    bool readColor(Color& out, const char* colorKey, const char* alphaKey) override;
    bool readFloat(float& out, const char* key) override;
    bool readInt(std::int32_t& out, const char* key) override;
    bool readUnsigned(std::uint32_t& out, const char* key) override;
    bool readBool(bool& out, const char* key) override;
    bool readEdges(Edges& out, const char* key) override;
    bool readEdgesHere(Edges& out) override;
    bool readBorder(BorderColors& out, const char* key) override;
    bool readBorderHere(BorderColors& out) override;
    [[nodiscard]] const char* className() override;
    [[nodiscard]] std::unique_ptr<NuiReader> firstIn(const char* key) override;
    [[nodiscard]] std::unique_ptr<NuiReader> nextItem() override;
    [[nodiscard]] WidgetPtr templateWidget() override;
    [[nodiscard]] PopupMenuPtr menuNamed(const std::string& id) override;
    bool readTemplateRef(WidgetPtr& out, const char* key, bool* isBack) override;
    [[nodiscard]] WidgetPtr widgetRefHere() override;
    [[nodiscard]] PopupMenuPtr menuRefHere() override;
    void reportFault(LayoutFault::Kind kind, const std::string& detail, const char* key) override;

private:
    using TypeTest = bool (Json::*)() const;

    [[nodiscard]] std::unique_ptr<NuiReader> onItem(const Json* item, const Json* end) const;
    [[nodiscard]] const Json* find(const char* key);
    /// As find(), for a value that must be of a type, which `expected` names.
    [[nodiscard]] const Json* find(const char* key, TypeTest isOfType, const char* expected);
    bool readPointFrom(const Json& value, Point& out, const char* key);
    [[nodiscard]] const std::string* colorNamed(const std::string& name) const;
    void readAlpha(Color& out, const char* alphaKey);
    bool readEdge(float& value, SizeMode& mode, const char* key);

    const Json* value_;
    const Json* end_; ///< of the array that the value stands in
    LayoutDiagnostics* diagnostics_;
};

} // namespace nui
