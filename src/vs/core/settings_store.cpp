#include "vs/core/settings_store.h"

#include "misc/file_system.h"
#include "misc/known_folders.h"

#include <fstream>
#include <utility>

namespace nrd::vs {

using nlohmann::json;

namespace {

constexpr const char* company = "Tavrolen Corporation";

/// Null for a file that is missing or empty.
json read_json(const misc::path& path)
{
    std::ifstream file = misc::open_for_reading(path);
    file.seekg(0, std::ios::end);
    const std::streamoff size = file.is_open() ? std::streamoff(file.tellg()) : 0;
    if (size <= 0) {
        return {};
    }
    file.seekg(0);
    return json::parse(file);
}

/// The member, or null if there is none of that name and kind.
const json* member(const json& object, const char* name, json::value_t kind)
{
    const auto found = object.find(name);
    return found != object.end() && found->type() == kind ? &*found : nullptr;
}

void read_conditions(std::map<std::string, json>& conditions, const json& option, const char* name)
{
    if (const json* const object = member(option, name, json::value_t::object)) {
        conditions = object->get<std::map<std::string, json>>();
    }
}

bool read_settings(settings_model& model, const misc::path& path)
{
    const json settings = read_json(path);
    if (settings.empty()) {
        return false;
    }
    if (const json* const option = member(settings, "option", json::value_t::object)) {
        read_conditions(model.option.user_conds, *option, "user_conds");
        read_conditions(model.option.default_conditions_map, *option, "default_conditions_map");
    }
    return true;
}

} // namespace

settings_store::settings_store(misc::path root)
    : root_(root.empty() ? misc::get_settings_folder() : std::move(root))
{
}

bool settings_store::load_settings_vs(settings_model& model) const
{
    return read_settings(model, product_file("settings_vs.json"));
}

bool settings_store::load_settings7(settings_model& model) const
{
    return read_settings(model, product_file("settings7.json"));
}

bool settings_store::load_cutter_models(std::vector<std::string>& list) const
{
    const json content = read_json(shared_file("cutters.json"));
    const json* const cutters = member(content, "cutters", json::value_t::array);
    if (cutters == nullptr) {
        return false;
    }
    for (const json& cutter : *cutters) {
        if (const json* const model = member(cutter, "model", json::value_t::string)) {
            list.push_back(model->get<std::string>());
        }
    }
    return true;
}

misc::path settings_store::product_file(const char* name) const
{
    return folder("Velmora Studio 5") / name;
}

misc::path settings_store::shared_file(const char* name) const
{
    return folder("shared") / name;
}

/// A folder that cannot be made has no files to read.
misc::path settings_store::folder(const char* name) const
{
    misc::path made = root_ / company / name;
    misc::error_code ignored;
    misc::create_directories(made, ignored);
    return made;
}

} // namespace nrd::vs
