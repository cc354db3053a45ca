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
                               const std::string& detail) const
{
    const JsonPlaces::Place place = places_.placeOf(at);
    listener_({kind, path_, key, detail, place.line, place.column});
}

void LayoutDiagnostics::reportUnreadKeys() const
{
    std::vector<const Json*> names;
    for (const Json* const object : objects_) {
        if (!object->IsObject())
            continue;
        for (const auto& member : object->GetObject()) {
            if (!read_.contains(&member.value))
                names.push_back(&member.name);
        }
    }
    std::sort(names.begin(), names.end(), [this](const Json* one, const Json* other) {
        return places_.offsetOf(*one) < places_.offsetOf(*other);
    });
    // An object may have been noted by several who read it.
    names.erase(std::unique(names.begin(), names.end()), names.end());
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
