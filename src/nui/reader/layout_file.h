#pragma once

#include "nui/reader/json_file.h"
#include "nui/reader/layout_loader.h"

#include <map>
#include <memory>
#include <string>

namespace nui {

class LayoutDiagnostics;

/// One layout file on its way into a pack: what it includes, then its own texts, menus, templates
/// and widgets. Lives for one load.
class LayoutFile {
public:
    enum class Outcome {
        Missing, ///< it cannot be opened
        Faulty,  ///< the pack has what stands in front of the fault
        Loaded
    };

    /// `target` may be null; see LayoutLoader::loadInto.
    LayoutFile(LayoutLoader& loader, WidgetPack& pack, IncludeCache& cache, WidgetMap* target);
    ~LayoutFile();

    /// A relative name counts from the engine's base path.
    [[nodiscard]] Outcome load(const std::string& name);

private:
    [[nodiscard]] bool read(const Json& root);
    void readIncludes(const Json& list);
    void include(const std::string& name, const Json& at);
    [[nodiscard]] bool readConfig(const Json& config);
    void readTexts(std::map<std::string, std::string>& texts, const Json& object);
    void readThemes(const Json& themes);
    void readMenu(const Json& item);
    void readTemplate(const Json& item);
    void readWidget(const Json& item);
    [[nodiscard]] std::string freeName();

    /// The root's member, if it is there and of that type.
    [[nodiscard]] const Json* member(const Json& object, const char* key, rapidjson::Type type);
    void forEach(const Json& root, const char* key, void (LayoutFile::*readItem)(const Json& item));
    void report(LayoutFault::Kind kind, const Json& at, const std::string& key,
                const std::string& detail) const;

    LayoutLoader& loader_;
    WidgetPack& pack_;
    IncludeCache& cache_;
    WidgetMap* target_;
    WidgetPtr moduleInit_;                           ///< held, as a later widget may take its id
    std::unique_ptr<LayoutDiagnostics> diagnostics_; ///< null while nobody listens
};

} // namespace nui
