#include "nui/reader/layout_diagnostics.h"

#include <algorithm>
#include <utility>

namespace nui {

LayoutDiagnostics::LayoutDiagnostics(const FaultListener& listener, std::string path,
                                     const Json& root)
    : listener_(listener), path_(std::move(path)), places_(path_, root)
{
}

void LayoutDiagnostics::report(LayoutFault::Kind kind, const Json& at, const std::string& key,
                               const std::string& detail)
{
    const std::size_t offset = places_.offsetOf(at);
    const JsonPlaces::Place place = places_.placeAt(offset);
    faults_.push_back({offset, {kind, path_, key, detail, place.line, place.column}});
}

void LayoutDiagnostics::tell()
{
    std::ranges::stable_sort(faults_, {}, &std::pair<std::size_t, LayoutFault>::first);
    for (const auto& [offset, fault] : faults_)
        listener_(fault);
    faults_.clear();
}

void LayoutDiagnostics::reportUnreadKeys()
{
    // An object may have been noted by several who read it.
    std::unordered_set<const Json*> names;
    for (const Json* const object : objects_) {
        if (!object->IsObject())
            continue;
        for (const auto& member : object->GetObject()) {
            if (!read_.contains(&member.value))
                names.insert(&member.name);
        }
    }
    for (const Json* const name : names)
        report(LayoutFault::Kind::UnknownKey, *name, name->GetString(), {});
}

void LayoutDiagnostics::reportSyntax(const FaultListener& listener, const std::string& path,
                                     const JsonFile& file)
{
    const JsonPlaces::Place place = JsonPlaces(path).placeAt(file.errorOffset());
    listener({LayoutFault::Kind::Syntax, path, {}, file.errorText(), place.line, place.column});
}

} // namespace nui
