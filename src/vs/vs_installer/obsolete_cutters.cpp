#include "vs/vs_installer/obsolete_cutters.h"

#include <algorithm>

namespace nrd::vs_installer {

namespace {

constexpr std::size_t prefix_length = 6;

template <class Map> bool has_obsolete_key(const Map& models)
{
    return std::any_of(models.begin(), models.end(),
                       [](const auto& entry) { return is_obsolete_model(entry.first); });
}

} // namespace

bool is_obsolete_model(std::string_view text)
{
    const std::string_view prefix = text.substr(0, prefix_length);
    if (prefix == "QX1180" || prefix == "QX2400" || prefix == "QX2410") {
        return true;
    }
    // The later make of that series is served still.
    return prefix == "ZT5000" && text.find("Gold") == text.npos;
}

bool any_obsolete_key(const vs::option_settings& settings)
{
    return has_obsolete_key(settings.user_conds) ||
           has_obsolete_key(settings.default_conditions_map);
}

bool any_obsolete_model(const std::vector<std::string>& models)
{
    return std::any_of(models.begin(), models.end(),
                       [](const std::string& model) { return is_obsolete_model(model); });
}

bool has_obsolete_cutter()
{
    const vs::settings_store store;
    vs::settings_model current;
    vs::settings_model older;
    store.load_settings_vs(current);
    store.load_settings7(older);
    std::vector<std::string> cutters;
    store.load_cutter_models(cutters);
    return any_obsolete_key(current.option) || any_obsolete_key(older.option) ||
           any_obsolete_model(cutters);
}

} // namespace nrd::vs_installer
