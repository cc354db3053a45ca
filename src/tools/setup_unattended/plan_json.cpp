#include "tools/setup_unattended/plan_json.h"

#include "tools/setup_unattended/verdict_words.h"

namespace nrd::tools {

using json = nlohmann::ordered_json;
using misc::to_utf8;

namespace {

json texts(const std::vector<misc::path>& paths)
{
    json list = json::array();
    for (const misc::path& each : paths) {
        list.push_back(to_utf8(each));
    }
    return list;
}

json to_json(const planned_fileset& each)
{
    json files = json::array();
    for (const misc::planned_change& file : each.files) {
        files.push_back({{"source", to_utf8(file.source)},
                         {"target", to_utf8(file.target)},
                         {"bytes", file.bytes},
                         {"replaces", file.replaces}});
    }
    return {{"in", to_utf8(each.decision.in)},
            {"out", to_utf8(each.decision.out)},
            {"decision", words_of(each.decision.verdict)},
            {"files", files}};
}

json to_json(const planned_package& each)
{
    json filesets = json::array();
    for (const planned_fileset& files : each.filesets) {
        filesets.push_back(to_json(files));
    }
    return {{"name", each.decision.name},
            {"os", each.decision.os},
            {"bits", each.decision.bits},
            {"decision", words_of(each.decision.verdict)},
            {"filesets", filesets}};
}

/// A plain text is a text; what else a value may hold comes with its type.
json to_json(const misc::registry_data& data)
{
    const std::string text = to_utf8(data.text);
    return data.is_plain_text() ? json(text) : json{{"type", data.type}, {"data", text}};
}

json registry_to_json(const misc::planned_change& each)
{
    json entry = {{"change", words_of(each.kind)}, {"key", to_utf8(each.key)}};
    if (each.kind == misc::change_kind::set_value || each.kind == misc::change_kind::delete_value) {
        entry["name"] = to_utf8(each.name);
        entry["before"] = each.before ? to_json(*each.before) : json();
        entry["data"] =
            each.kind == misc::change_kind::set_value ? json(to_utf8(each.data)) : json();
    }
    return entry;
}

json to_json(const spec_plan& plan)
{
    json packages = json::array();
    for (const planned_package& each : plan.packages) {
        packages.push_back(to_json(each));
    }
    json registry = json::array();
    for (const misc::planned_change& each : plan.registry) {
        registry.push_back(registry_to_json(each));
    }
    json shortcuts = json::array();
    for (const installation::shortcut_decision& each : plan.shortcuts) {
        shortcuts.push_back({{"location", to_utf8(each.location)},
                             {"destination", to_utf8(each.destination)},
                             {"made", each.verdict == installation::shortcut_verdict::made},
                             {"decision", words_of(each.verdict)}});
    }
    json path_entries = json::array();
    for (const installation::path_entry_decision& each : plan.path_entries) {
        path_entries.push_back(
            {{"app_code", to_utf8(each.app_code)}, {"path", to_utf8(each.path)}});
    }
    return {{"app_name", plan.app_name},
            {"working_directory", to_utf8(plan.working_directory)},
            {"install_path", to_utf8(plan.install_path)},
            {"already_installed", plan.already_installed},
            {"back_up", plan.backs_up},
            {"installs_over", plan.installs_over},
            {"packages", packages},
            {"new_folders", texts(plan.new_folders)},
            {"written_files", texts(plan.written_files)},
            {"registry", registry},
            {"shortcuts", shortcuts},
            {"path_index", path_entries}};
}

} // namespace

json plan_to_json(const install_plan& plan)
{
    json specs = json::array();
    for (const spec_plan& each : plan.specs) {
        specs.push_back(to_json(each));
    }
    json failures = json::array();
    for (const installation::failure_decision& each : plan.failures) {
        failures.push_back({{"where", to_utf8(each.where)}, {"reason", each.reason}});
    }
    json refused_keys = json::array();
    for (const misc::text32& each : plan.refused_keys) {
        refused_keys.push_back(to_utf8(each));
    }
    return {{"blockers", plan.blockers},
            {"missing_sources", texts(plan.missing_sources)},
            {"refused_keys", refused_keys},
            {"failures", failures},
            {"bytes_needed", plan.bytes_needed},
            {"bytes_free", plan.bytes_free ? json(*plan.bytes_free) : json()},
            {"specs", specs}};
}

} // namespace nrd::tools
