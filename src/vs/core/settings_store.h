#pragma once

#include "misc/path.h"

#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace nrd::vs {

/// What the applications of the product remember for each cutter, by its model. They alone know
/// what the values mean.
struct option_settings {
    std::map<std::string, nlohmann::json> user_conds;
    std::map<std::string, nlohmann::json> default_conditions_map;
};

/// The stored settings of an application, in so far as the installer reads them.
struct settings_model {
    option_settings option;
};

/// The files that the applications of the product leave in the user's settings folder. Nothing is
/// written here, but a folder is made when it is first named. Files with broken JSON throw
/// nlohmann::json::parse_error.
class settings_store {
public:
    /// Empty: the user's settings folder.
    explicit settings_store(misc::path root = {});

    /// False, with the model as it was, if the file is missing or has no data.
    bool load_settings_vs(settings_model& model) const;
    bool load_settings7(settings_model& model) const;
    /// Appends the models in the order of the file. False if it is missing or has no data, or no
    /// list of cutters.
    bool load_cutter_models(std::vector<std::string>& list) const;

private:
    [[nodiscard]] misc::path product_file(const char* name) const;
    [[nodiscard]] misc::path shared_file(const char* name) const;
    [[nodiscard]] misc::path folder(const char* name) const;

    misc::path root_;
};

} // namespace nrd::vs
