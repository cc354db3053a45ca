#include "inst/installation/parser.h"

#include "misc/file_system.h"
#include "streams/installer_log.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>
#include <string_view>

namespace nrd::installation {

using misc::to_text32;
using misc::to_utf8;

namespace {

std::string_view name_of(const pugi::xml_attribute& attribute)
{
    return attribute.name();
}

text32 wide(const pugi::xml_attribute& attribute)
{
    return to_text32(std::string_view(attribute.value()));
}

var parse_var(const pugi::xml_node& node)
{
    installer_log("Parsing xml node to var.");
    var result;
    for (const pugi::xml_attribute& each : node.attributes()) {
        if (name_of(each) == "name") {
            result.name = wide(each);
        } else if (name_of(each) == "value" || name_of(each) == "win_value") {
            result.value = wide(each); // neither goes before the other: the last one counts
        }
    }
    installer_log("Parsed: " + to_utf8(result.name) + ", " + to_utf8(result.value));
    return result;
}

fileset parse_fileset(const pugi::xml_node& node)
{
    installer_log("Parsing xml node to fileset.");
    fileset result(wide(node.attribute("in")), wide(node.attribute("out")),
                   wide(node.attribute("create_folders")));
    installer_log("Parsed to: " + to_utf8(result.in()) + ", " + to_utf8(result.out()) + ", " +
                  to_utf8(result.create_folders()));
    return result;
}

reg_key parse_reg_key(const pugi::xml_node& node)
{
    installer_log("Parsing xml node to reg key.");
    return {wide(node.attribute("path")),
            node.attribute("name").value(),
            wide(node.attribute("data")),
            {}};
}

path_entry parse_path_entry(const pugi::xml_node& node)
{
    installer_log("Parsing xml node to path entry.");
    path_entry result{wide(node.attribute("path")), wide(node.attribute("app_code"))};
    installer_log("Parsed to: " + to_utf8(result.path) + ", " + to_utf8(result.app_code));
    return result;
}

shortcut parse_shortcut(const pugi::xml_node& node)
{
    installer_log("Parsing xml node to shortcut.");
    shortcut result;
    result.location = wide(node.attribute("location"));
    result.destination = wide(node.attribute("destination"));
    if (const pugi::xml_attribute os = node.attribute("os")) {
        result.os = wide(os);
    }
    installer_log("Parsed to: " + to_utf8(result.location) + ", " + to_utf8(result.destination) +
                  ", " + to_utf8(result.os));
    return result;
}

block_process parse_block_process(const pugi::xml_node& node)
{
    installer_log("Parsing xml node to block process.");
    block_process result{node.attribute("name").value(), node.attribute("os").value()};
    installer_log("Parsing to: " + result.name + ", " + result.os);
    return result;
}

/// Every child node is an entry, text between elements included.
template <class Record>
std::vector<Record> parse_entries(const pugi::xml_node& section,
                                  Record (*parse)(const pugi::xml_node&))
{
    std::vector<Record> records;
    for (const pugi::xml_node& entry : section.children()) {
        records.push_back(parse(entry));
    }
    return records;
}

std::vector<fileset> parse_filesets(const pugi::xml_node& section)
{
    installer_log("Parsing xml node to filesets.");
    return parse_entries(section, parse_fileset);
}

package parse_package(const pugi::xml_node& node)
{
    installer_log("Parsing xml node to package details:");
    return {node.attribute("name").value(), node.attribute("os").value(),
            node.attribute("bits").value(), parse_filesets(node.child("filesets"))};
}

std::vector<package> parse_packages(const pugi::xml_node& section)
{
    installer_log("Parsing xml node to packages.");
    return parse_entries(section, parse_package);
}

std::vector<reg_key> parse_reg_keys(const pugi::xml_node& section)
{
    installer_log("Parsing xml node to reg keys.");
    return parse_entries(section, parse_reg_key);
}

std::vector<path_entry> parse_path_entries(const pugi::xml_node& section)
{
    installer_log("Parsing xml node to path entries.");
    return parse_entries(section, parse_path_entry);
}

std::vector<shortcut> parse_shortcuts(const pugi::xml_node& section)
{
    installer_log("Parsing xml node to shortcuts.");
    return parse_entries(section, parse_shortcut);
}

std::vector<block_process> parse_block_processes(const pugi::xml_node& section)
{
    installer_log("Parsing xml node to block processes.");
    return parse_entries(section, parse_block_process);
}

/// The parser tells a fault by its offset in the preprocessed text.
xml_error place_error(const pugi::xml_parse_result& result, std::string_view text,
                      const std::vector<line_origin>& origins)
{
    const auto offset =
        std::min(static_cast<std::size_t>(std::max<std::ptrdiff_t>(result.offset, 0)), text.size());
    const std::string_view before = text.substr(0, offset);
    auto line = static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
    const std::size_t line_begin = before.rfind('\n') + 1;
    xml_error error{result.description(), {}, 0, offset - line_begin + 1};
    if (!origins.empty()) {
        line = std::min(line, origins.size() - 1);
        error.file = origins[line].file;
        error.line = origins[line].line;
    }
    return error;
}

} // namespace

import_result import_install_xml(const misc::path& path)
{
    import_result result;
    installer_log("Attempting xml import.");
    std::ostringstream stream;
    std::vector<line_origin> origins;
    preprocess(path, stream, &origins);
    const std::string text = stream.str();
    pugi::xml_document document;
    const pugi::xml_parse_result parsed = document.load_buffer(text.data(), text.size());
    if (!parsed) {
        installer_log("Import failed.");
        installer_log(parsed.description());
        result.error = place_error(parsed, text, origins);
        if (origins.empty()) {
            result.error->file = path;
            result.error->line = 1;
        }
        return result;
    }
    installer_log("Import successful.");
    result.imported = parse_spec(document.child("installation"));
    result.imported.working_directory = path.parent_path();
    return result;
}

spec import_spec(const misc::path& path)
{
    return import_install_xml(path).imported;
}

void preprocess(const misc::path& path, std::ostream& out, std::vector<line_origin>* origins)
{
    constexpr std::string_view directive = "#include";
    installer_log("Preprocessing " + to_utf8(path));
    std::ifstream file = misc::open_for_reading(path);
    std::string line;
    for (std::size_t number = 1; std::getline(file, line); ++number) {
        if (!line.starts_with(directive)) {
            out << line << '\n';
            if (origins != nullptr) {
                origins->push_back({path, number});
            }
            continue;
        }
        std::string name;
        try {
            name = remove_quotes(line.substr(directive.size()));
        } catch (const std::out_of_range&) {
            throw std::out_of_range(to_utf8(path) + ":" + std::to_string(number) +
                                    ": #include without a quoted file name");
        }
        preprocess(path.parent_path() / misc::to_path(std::string_view(name)), out, origins);
    }
}

std::string remove_quotes(std::string text)
{
    installer_log("Removing quotes from " + text);
    while (text.empty() || text.front() != '"') {
        text = text.substr(1); // throws when nothing is left to remove
    }
    while (text.back() != '"') {
        text.pop_back();
    }
    return text.size() < 2 ? std::string() : text.substr(1, text.size() - 2);
}

spec parse_spec(const pugi::xml_node& node)
{
    installer_log("Parsing xml node to spec.");
    spec result;
    result.add_vars(parse_entries(node.child("vars"), parse_var));
    result.packages = parse_packages(node.child("packages"));
    result.reg_keys = parse_reg_keys(node.child("registry"));
    result.path_entries = parse_path_entries(node.child("path_entries"));
    result.shortcuts = parse_shortcuts(node.child("shortcuts"));
    result.block_processes = parse_block_processes(node.child("block_processes"));
    installer_log("Parsed spec: " + to_utf8(result.to_text()));
    return result;
}

} // namespace nrd::installation
