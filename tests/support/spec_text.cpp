#include "support/spec_text.h"

namespace nrd::test {

using misc::to_utf8;

std::string package_text(const installation::package& pack)
{
    std::string text = "package " + pack.name + " (" + pack.os + ", " + pack.bits + ")\n";
    for (const installation::fileset& each : pack.filesets) {
        text += "  " + to_utf8(each.in()) + " -> " + to_utf8(each.out());
        text +=
            each.create_folders().empty() ? "\n" : " [" + to_utf8(each.create_folders()) + "]\n";
    }
    return text;
}

std::string spec_text(const installation::spec& s)
{
    std::string text;
    for (const installation::var& each : s.vars) {
        text += "var " + to_utf8(each.name) + " = " + to_utf8(each.value) + "\n";
    }
    for (const installation::package& each : s.packages) {
        text += package_text(each);
    }
    for (const installation::reg_key& each : s.reg_keys) {
        text += "key " + to_utf8(each.path) + " : " + each.name + " = " + to_utf8(each.data);
        for (const std::uint32_t element : each.binary_data) {
            text += " {" + std::to_string(element) + "}";
        }
        text += "\n";
    }
    for (const installation::path_entry& each : s.path_entries) {
        text += "path " + to_utf8(each.app_code) + " = " + to_utf8(each.path) + "\n";
    }
    for (const installation::shortcut& each : s.shortcuts) {
        text += "shortcut " + to_utf8(each.location) + " -> " + to_utf8(each.destination) + " (" +
                to_utf8(each.os) + ")\n";
    }
    for (const installation::block_process& each : s.block_processes) {
        text += "process " + each.name + " (" + each.os + ")\n";
    }
    return text;
}

} // namespace nrd::test
