#include "tools/setup_unattended/plan_text.h"

#include "tools/setup_unattended/verdict_words.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace nrd::tools {

using misc::change_kind;
using misc::planned_change;
using misc::to_utf8;

namespace {

/// Rows whose columns are as wide as their widest cell.
class table {
public:
    void add(std::vector<std::string> row) { rows_.push_back(std::move(row)); }

    void print(std::ostream& out, const std::string& heading) const
    {
        if (rows_.empty()) {
            return;
        }
        out << '\n' << heading << '\n';
        for (const std::vector<std::string>& row : rows_) {
            std::string line;
            for (std::size_t i = 0; i < row.size(); ++i) {
                line += "  " + row[i] + std::string(width(i) - columns(row[i]), ' ');
            }
            line.erase(line.find_last_not_of(' ') + 1);
            out << line << '\n';
        }
    }

private:
    static std::size_t columns(const std::string& cell)
    {
        return misc::to_text32(std::string_view(cell)).size();
    }

    [[nodiscard]] std::size_t width(std::size_t column) const
    {
        std::size_t widest = 0;
        for (const std::vector<std::string>& row : rows_) {
            widest = std::max(widest, column < row.size() ? columns(row[column]) : 0);
        }
        return widest;
    }

    std::vector<std::vector<std::string>> rows_;
};

void print_packages(const spec_plan& plan, std::ostream& out)
{
    table packages;
    for (const planned_package& each : plan.packages) {
        packages.add({each.decision.name, "os " + each.decision.os, "bits " + each.decision.bits,
                      words_of(each.decision.verdict)});
    }
    packages.print(out, "Packages");

    table filesets;
    table files;
    for (const planned_package& package : plan.packages) {
        for (const planned_fileset& each : package.filesets) {
            filesets.add({words_of(each.decision.verdict), to_utf8(each.decision.in), "->",
                          each.decision.out.empty() ? "(nowhere)" : to_utf8(each.decision.out)});
            for (const planned_change& file : each.files) {
                files.add({file.replaces ? "replace" : "new", std::to_string(file.bytes),
                           to_utf8(file.target)});
            }
        }
    }
    filesets.print(out, "Filesets");
    files.print(out, "Files (bytes)");
}

void print_folders(const spec_plan& plan, std::ostream& out)
{
    table folders;
    for (const misc::path& each : plan.new_folders) {
        folders.add({to_utf8(each)});
    }
    folders.print(out, "New folders");
    table written;
    for (const misc::path& each : plan.written_files) {
        written.add({to_utf8(each)});
    }
    written.print(out, "Files written by the installer");
}

std::string in_quotes(const misc::text32& text)
{
    return '"' + to_utf8(text) + '"';
}

/// A text in quotation marks, anything else behind the name of its type, cut where it gets long.
std::string data_text(const std::optional<misc::registry_data>& data)
{
    constexpr std::size_t most = 60;
    if (!data) {
        return "(none)";
    }
    if (data->is_plain_text()) {
        return in_quotes(data->text);
    }
    return data->type + " " + to_utf8(std::u32string_view(data->text).substr(0, most)) +
           (data->text.size() > most ? "..." : "");
}

void print_registry(const spec_plan& plan, std::ostream& out)
{
    table registry;
    for (const planned_change& each : plan.registry) {
        std::vector<std::string> row = {words_of(each.kind), to_utf8(each.key)};
        if (each.kind == change_kind::set_value || each.kind == change_kind::delete_value) {
            const bool sets = each.kind == change_kind::set_value;
            row.push_back(in_quotes(each.name));
            row.push_back(data_text(each.before));
            row.push_back("->");
            row.push_back(sets ? in_quotes(each.data) : data_text(std::nullopt));
        }
        registry.add(row);
    }
    registry.print(out, "Registry");
}

void print_links(const spec_plan& plan, std::ostream& out)
{
    table shortcuts;
    for (const installation::shortcut_decision& each : plan.shortcuts) {
        shortcuts.add(
            {words_of(each.verdict), to_utf8(each.location), "->", to_utf8(each.destination)});
    }
    shortcuts.print(out, "Shortcuts");
    table entries;
    for (const installation::path_entry_decision& each : plan.path_entries) {
        entries.add({to_utf8(each.app_code), to_utf8(each.path)});
    }
    entries.print(out, "Path index entries");
}

void print_spec(const spec_plan& plan, std::ostream& out)
{
    out << "Plan for " << plan.app_name << " from " << to_utf8(plan.working_directory) << '\n';
    out << "  install folder:     " << to_utf8(plan.install_path) << '\n';
    out << "  already installed:  " << (plan.already_installed ? "yes" : "no") << '\n';
    out << "  back-up:            "
        << (plan.backs_up ? "yes, the older folder is moved aside until the end"
            : plan.installs_over
                ? "no, the older folder cannot be moved aside and is installed over"
                : "no, there is no older installation in the install folder")
        << '\n';
    print_packages(plan, out);
    print_folders(plan, out);
    print_registry(plan, out);
    print_links(plan, out);
}

} // namespace

void print_plan(const install_plan& plan, std::ostream& out)
{
    for (const spec_plan& each : plan.specs) {
        print_spec(each, out);
        out << '\n';
    }
    table ends;
    for (const misc::path& each : plan.missing_sources) {
        ends.add({"missing source", to_utf8(each)});
    }
    for (const installation::failure_decision& each : plan.failures) {
        ends.add({each.reason, to_utf8(each.where)});
    }
    for (const std::string& each : plan.blockers) {
        ends.add({"running program", each});
    }
    ends.print(out, "An installation would stop at");
    table refused;
    for (const misc::text32& each : plan.refused_keys) {
        refused.add({"refused registry key", to_utf8(each)});
    }
    refused.print(out, "An installation would go on without");
    out << "\nBytes needed: " << plan.bytes_needed
        << ", bytes free: " << (plan.bytes_free ? std::to_string(*plan.bytes_free) : "unknown")
        << '\n';
    out << "Nothing was changed.\n";
}

} // namespace nrd::tools
