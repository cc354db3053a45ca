#pragma once

#include "nui/reader/json_places.h"
#include "nui/reader/layout_fault.h"

#include <cstddef>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace nui {

/// Gathers one file's faults with their places, and the keys that nobody reads, and tells them in
/// the order of the text. Exists only while somebody listens.
class LayoutDiagnostics {
public:
    /// `root` is what the file was parsed to; both outlive this object.
    LayoutDiagnostics(const FaultListener& listener, std::string path, const Json& root);

    /// `at` is the value that is at fault.
    void report(LayoutFault::Kind kind, const Json& at, const std::string& key,
                const std::string& detail);
    /// Somebody reads the object's keys.
    void noteObject(const Json& object) { objects_.push_back(&object); }
    /// Nothing is made of the object, so its keys are nobody's.
    void dropObject(const Json& object) { std::erase(objects_, &object); }
    void noteRead(const Json& member) { read_.insert(&member); }
    /// Of the objects that were noted.
    void reportUnreadKeys();
    /// What was reported, once the file has been read.
    void tell();

    /// For a file that is no JSON.
    static void reportSyntax(const FaultListener& listener, const std::string& path,
                             const JsonFile& file);

private:
    const FaultListener& listener_;
    std::string path_;
    JsonPlaces places_;
    std::vector<std::pair<std::size_t, LayoutFault>> faults_; ///< with their offsets
    std::vector<const Json*> objects_;
    std::unordered_set<const Json*> read_;
};

} // namespace nui
