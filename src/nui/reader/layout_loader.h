#pragma once

#include "nui/reader/layout_fault.h"
#include "nui/reader/widget_pack.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace nui {

class NuiReader;

/// Packs of included files, by the name that includes them.
using IncludeCache = std::map<std::string, WidgetPack>;

/// Builds the widgets of a layout file. Lives as long as the program wants to reload. For the
/// loop's thread, as textures are made while widgets are read.
class LayoutLoader {
public:
    /// A relative name counts from the engine's base path.
    explicit LayoutLoader(std::string fileName);

    /// The widgets that have an id. A faulty file gives what there was up to the fault.
    WidgetMap load();
    /// As load(), and the file's widgets go into `target` as well; those without an id under a
    /// made-up one. False for a file that cannot be read or is no layout file.
    bool loadInto(IncludeCache& cache, WidgetMap& target);
    /// Loads the same file into the same pack again; always true.
    bool reload();

    [[nodiscard]] WidgetPack& pack() { return pack_; }
    /// Every widget that the last reload built; not owned.
    [[nodiscard]] const std::vector<Widget*>& reloaded() const { return reloadList_; }
    /// Picks a theme before loading; without one the file's first is taken.
    void setTheme(std::string name) { theme_ = std::move(name); }
    /// Lets `d:class` go before `class`, for design tools.
    void setUseDesignClasses(bool use) { useDesignClasses_ = use; }
    [[nodiscard]] bool usesDesignClasses() const { return useDesignClasses_; }
    /// Costs nothing while none is set.
    void setFaultListener(FaultListener listener) { faultListener_ = std::move(listener); }

    /// Builds the widget of the reader's object, for containers that read their children. Null
    /// when the object names nothing that can be built.
    WidgetPtr build(NuiReader& reader, Widget* parent);
    /// Whether something of so many levels, counted with itself, may stand where the reader is.
    /// Otherwise a fault is told of the reader's object.
    [[nodiscard]] bool hasRoom(NuiReader& reader, int levels) const;

    /// While it lives, what is read stands one level deeper. For widgets and menus.
    class Level {
    public:
        explicit Level(LayoutLoader& loader) : depth_(loader.depth_) { ++depth_; }
        ~Level() { --depth_; }
        Level(const Level&) = delete;
        Level& operator=(const Level&) = delete;

    private:
        int& depth_;
    };

    // The file's widgets, menus and texts are filled in by these, from the reader's files.
    friend class LayoutFile;

private:
    /// How deep widgets may be nested, and menus, also by way of what they refer to. No layout
    /// comes near it, and each level takes its part of the stack whenever the tree is gone through.
    static constexpr int MaxDepth = 200;

    [[nodiscard]] static WidgetPtr make(const char* className, const WidgetPtr& source);
    bool loadFile(IncludeCache& cache, WidgetMap* target);

    std::string theme_;
    std::uint32_t widgetCounter_ = 0;
    std::vector<Widget*> reloadList_;
    bool reloading_ = false;
    bool useDesignClasses_ = false;
    std::string fileName_;
    WidgetPack pack_;
    IncludeCache reloadCache_;
    FaultListener faultListener_;
    std::set<std::string> loading_; ///< paths of the included files that are being read
    int depth_ = 0;                 ///< of what is being read
};

} // namespace nui
