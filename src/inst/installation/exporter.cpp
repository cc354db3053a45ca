#include "inst/installation/exporter.h"

#include "misc/file_system.h"

#include <fstream>

namespace nrd::installation {

namespace {

void add_attribute(pugi::xml_node& node, const char* name, const std::string& value)
{
    node.append_attribute(name) = value.c_str();
}

void add_attribute(pugi::xml_node& node, const char* name, const text32& value)
{
    add_attribute(node, name, misc::to_utf8(value));
}

void add_package(pugi::xml_node section, const package& each)
{
    pugi::xml_node node = section.append_child("package");
    add_attribute(node, "name", each.name);
    add_attribute(node, "os", each.os);
    add_attribute(node, "bits", each.bits);
    pugi::xml_node filesets = node.append_child("filesets");
    for (const fileset& files : each.filesets) {
        pugi::xml_node entry = filesets.append_child("fileset");
        add_attribute(entry, "in", files.in());
        add_attribute(entry, "out", files.out());
    }
}

} // namespace

pugi::xml_document to_document(const spec& s)
{
    pugi::xml_document document;
    pugi::xml_node root = document.append_child("installation");
    pugi::xml_node section = root.append_child("vars");
    for (const var& each : s.vars) {
        pugi::xml_node node = section.append_child("var");
        add_attribute(node, "name", each.name);
        add_attribute(node, "value", each.value);
    }
    section = root.append_child("packages");
    for (const package& each : s.packages) {
        add_package(section, each);
    }
    section = root.append_child("registry");
    for (const reg_key& each : s.reg_keys) {
        pugi::xml_node node = section.append_child("key");
        add_attribute(node, "path", each.path);
        add_attribute(node, "name", each.name);
        add_attribute(node, "data", each.data);
    }
    section = root.append_child("path_entries");
    for (const path_entry& each : s.path_entries) {
        pugi::xml_node node = section.append_child("path_entry");
        add_attribute(node, "app_code", each.app_code);
        add_attribute(node, "path", each.path);
    }
    section = root.append_child("shortcuts");
    for (const shortcut& each : s.shortcuts) {
        pugi::xml_node node = section.append_child("shortcut");
        add_attribute(node, "location", each.location);
        add_attribute(node, "destination", each.destination);
        add_attribute(node, "os", each.os);
    }
    section = root.append_child("block_processes");
    for (const block_process& each : s.block_processes) {
        pugi::xml_node node = section.append_child("block_process");
        add_attribute(node, "name", each.name);
        add_attribute(node, "os", each.os);
    }
    return document;
}

void export_spec(const spec& s, std::ostream& out)
{
    to_document(s).save(out, "\t");
}

bool save_spec(const spec& s, const misc::path& path)
{
    std::ofstream file = misc::open_for_writing(path, misc::line_ends::as_written);
    if (!file.is_open()) {
        return false;
    }
    export_spec(s, file);
    file.close();
    return !file.fail();
}

} // namespace nrd::installation
