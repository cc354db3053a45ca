#pragma once

#include "nui/draw/color.h"
#include "nui/draw/geometry.h"
#include "nui/layout/edges.h"
#include "nui/reader/layout_fault.h"
#include "nui/widgets/widget.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace nui {

class LayoutLoader;
class PopupMenu;
struct WidgetPack;

using PopupMenuPtr = std::shared_ptr<PopupMenu>;

/// The four colours of a border's edges.
struct BorderColors {
    Color top = 0;
    Color right = 0;
    Color bottom = 0;
    Color left = 0;
};

/// A cursor on one object of a layout file, as widgets see it while they read their keys. Every
/// key goes through the prefix. A read answers false and leaves its output alone when the key is
/// missing or its value is of another type.
class NuiReader {
public:
    NuiReader(WidgetPack& filledPack, LayoutLoader& owner) : pack_(filledPack), loader_(owner) {}
    NuiReader(const NuiReader&) = delete;
    NuiReader& operator=(const NuiReader&) = delete;
    virtual ~NuiReader() = default;

    [[nodiscard]] virtual bool has(const char* key) = 0;
    /// With a prefix set, only what is overridable is looked for.
    virtual bool readString(std::string& out, const char* key, bool overridable) = 0;
    /// A number is pixels; a text is a number and a unit. A text whose unit is unknown answers
    /// false, and `size.value` has its number all the same.
    virtual bool readSize(Size& size, const char* key) = 0;
    virtual bool readPoint(Point& out, const char* key) = 0;
    virtual bool readFloatList(std::vector<float>& out, const char* key) = 0;
    virtual bool readStringList(std::vector<std::string>& out, const char* key) = 0;
    /// "auto" gives 3.4028235e38 for both coordinates.
    virtual bool readPointOrAuto(Point& out, const char* key) = 0;
    /// Index of the text in a null-terminated table, whose empty entries never match.
    virtual bool readEnum(std::uint32_t& out, const char* key, const char* const* table) = 0;
    /// `alphaKey` may be null. Answers false only for a colour name that nobody knows.
    virtual bool readColor(Color& out, const char* colorKey, const char* alphaKey) = 0;
    virtual bool readFloat(float& out, const char* key) = 0;
    virtual bool readInt(std::int32_t& out, const char* key) = 0;
    virtual bool readUnsigned(std::uint32_t& out, const char* key) = 0;
    /// True for JSON's true, false for any other value.
    virtual bool readBool(bool& out, const char* key) = 0;
    virtual bool readEdges(Edges& out, const char* key) = 0;
    /// The edges' four keys in the current object.
    virtual bool readEdgesHere(Edges& out) = 0;
    virtual bool readBorder(BorderColors& out, const char* key) = 0;
    virtual bool readBorderHere(BorderColors& out) = 0;
    /// Null if the object names no class; lives as long as the document.
    [[nodiscard]] virtual const char* className() = 0;
    [[nodiscard]] virtual std::unique_ptr<NuiReader> children() { return firstIn("children"); }
    [[nodiscard]] virtual std::unique_ptr<NuiReader> next() { return nextItem(); }
    /// A reader on the first item of an array; null if there is none.
    [[nodiscard]] virtual std::unique_ptr<NuiReader> firstIn(const char* key) = 0;
    /// For a reader that firstIn or nextItem gave.
    [[nodiscard]] virtual std::unique_ptr<NuiReader> nextItem() = 0;
    /// What the key `template` names, or null.
    [[nodiscard]] virtual WidgetPtr templateWidget() = 0;
    [[nodiscard]] virtual PopupMenuPtr menuNamed(const std::string& id) = 0;
    /// The widget of that id; an empty text gives null and true. `isBack`, if given, learns
    /// whether the text begins with "-"; "-" alone is the widget built last.
    virtual bool readTemplateRef(WidgetPtr& out, const char* key, bool* isBack = nullptr) = 0;
    /// If the current value is a text that begins with "#": the widget of the id behind it.
    [[nodiscard]] virtual WidgetPtr widgetRefHere() = 0;
    /// If the current value is a text: the menu of that id.
    [[nodiscard]] virtual PopupMenuPtr menuRefHere() = 0;

    /// Tells the loader's fault listener, if there is one, that the value of the key (null: the
    /// current object) is at fault. See LayoutFault for `detail`.
    virtual void reportFault(LayoutFault::Kind /*kind*/, const std::string& /*detail*/,
                             const char* /*key*/)
    {
    }

    /// Reads a size and resolves it at once, percentages being of nothing.
    bool readSizeValue(float& out, const char* key);

    [[nodiscard]] const std::string& prefix() const { return prefix_; }
    void setPrefix(std::string prefix) { prefix_ = std::move(prefix); }
    [[nodiscard]] WidgetPack& pack() const { return pack_; }
    [[nodiscard]] LayoutLoader& loader() const { return loader_; }

private:
    WidgetPack& pack_;
    LayoutLoader& loader_;
    std::string prefix_;
};

} // namespace nui
