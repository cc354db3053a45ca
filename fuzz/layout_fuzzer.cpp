// The input is a layout file, and behind a zero byte a file "part.json" beside it. It is loaded,
// with and without somebody who listens for faults, and what was built is laid out.

#include "check.h"
#include "nui/engine/engine.h"
#include "nui/reader/layout_loader.h"
#include "nui/reader/widget_registry.h"
#include "nui/widgets/container.h"
#include "scratch_machine.h"

#include <algorithm>
#include <fstream>
#include <rapidjson/document.h>
#include <string>
#include <string_view>
#include <vector>

namespace {

using json = rapidjson::Value;

/// A layout takes twice the time for each level, and a template that holds a template twice grows
/// likewise: both are the author's affair.
constexpr int deepest = 24; // objects and lists: twelve levels of children
constexpr int most_references = 12;

/// What of a file could keep the toolkit busy for ever.
struct burden {
    int depth = 0;
    int references = 0;
    std::vector<std::pair<std::string, std::string>> texts; ///< may be names of colours
};

std::string without_spaces(std::string text)
{
    text.erase(0, text.find_first_not_of(' '));
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

void weigh(const json& value, int depth, burden& all)
{
    all.depth = std::max(all.depth, depth);
    if (depth > deepest) {
        return;
    }
    if (value.IsString() && *value.GetString() == '#') {
        ++all.references;
    } else if (value.IsArray()) {
        for (const json& item : value.GetArray()) {
            weigh(item, depth + 1, all);
        }
    } else if (value.IsObject()) {
        for (const auto& [name, member] : value.GetObject()) {
            all.references += std::string_view(name.GetString()) == "template" ? 1 : 0;
            if (member.IsString()) {
                all.texts.emplace_back(name.GetString(), without_spaces(member.GetString()));
            }
            weigh(member, depth + 1, all);
        }
    }
}

/// Two names of colours that stand for each other never end.
bool has_names_in_a_circle(const burden& all)
{
    std::vector<std::string> reached;
    for (const auto& [name, text] : all.texts) {
        reached = {name};
        for (std::size_t at = 0; at < reached.size(); ++at) {
            for (const auto& [other, meaning] : all.texts) {
                if (other != reached[at] || meaning.starts_with('#')) {
                    continue;
                }
                if (meaning == name) {
                    return true;
                }
                if (std::find(reached.begin(), reached.end(), meaning) == reached.end()) {
                    reached.push_back(meaning);
                }
            }
        }
    }
    return false;
}

bool may_not_end(const std::string& main_file, const std::string& part)
{
    burden all;
    for (const std::string& file : {main_file, part}) {
        rapidjson::Document document;
        document.Parse<rapidjson::kParseIterativeFlag>(file.c_str());
        if (!document.HasParseError()) {
            weigh(document, 0, all);
        }
    }
    return all.depth > deepest || all.references > most_references || has_names_in_a_circle(all);
}

void write(const char* name, std::string_view text)
{
    std::ofstream(scratch_machine() / name, std::ios::binary) << text;
}

std::string dump(const nui::Widget& widget)
{
    std::string text = std::string(widget.className()) + ' ' + widget.id + ' ' + widget.name + ' ' +
                       std::to_string(widget.serial);
    if (const auto* const container = dynamic_cast<const nui::Container*>(&widget)) {
        for (const nui::WidgetPtr& child : container->children()) {
            text += '(' + dump(*child) + ')';
        }
    }
    return text;
}

std::string dump(const nui::WidgetMap& widgets)
{
    std::string text;
    for (const auto& [id, widget] : widgets) {
        text += id + ": " + dump(*widget) + '\n';
    }
    return text;
}

void lay_out(const nui::WidgetMap& widgets)
{
    for (const auto& [id, widget] : widgets) {
        if (auto* const container = dynamic_cast<nui::Container*>(widget.get())) {
            const bool known = container->layout(nui::layout_flag::First);
            check(!known || (container->width >= 0 && container->height >= 0),
                  "a layout that is done has a size");
            container->place();
        }
    }
}

void start()
{
    static bool started = false;
    if (!started) {
        nui::Engine::create();
        nui::registerToolkitClasses();
        started = true;
    }
    nui::engine().basePath = scratch_machine().string() + '/';
    nui::engine().resourceDirectory = nui::engine().basePath;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const std::string input(reinterpret_cast<const char*>(data), size);
    const std::size_t end = std::min(input.find('\0'), input.size());
    const std::string main_file = input.substr(0, end);
    const std::string part = input.substr(std::min(end + 1, input.size()));
    if (may_not_end(main_file, part)) {
        return 0;
    }
    start();
    write("main.json", main_file);
    write("part.json", part);

    nui::LayoutLoader silent("main.json");
    const nui::WidgetMap widgets = silent.load();
    nui::LayoutLoader heard("main.json");
    heard.setFaultListener([](const nui::LayoutFault& fault) {
        check(fault.line > 0 && fault.column > 0, "a fault has a place");
        check(!sentenceFor(fault).empty(), "a fault has a text");
    });
    check(dump(heard.load()) == dump(widgets), "who listens changes nothing");
    lay_out(widgets);
    return 0;
}
