#pragma once

#include "bind/property.h"
#include "misc/path.h"

#include <string>

namespace nrd::installer::model {

class installer_app;

/// What the first page asks for: the folder to install into.
class welcome_tab_model {
public:
    /// Begins with the main spec's "APP_INSTALL_PATH". Throws std::invalid_argument without it.
    explicit welcome_tab_model(installer_app& shared);

    /// Where a picker for the folder begins: the folder above one that has the product's name;
    /// what is not there gives the top of its drive.
    [[nodiscard]] misc::path default_browse_path() const;

    /// The user picks the folder in which the product gets one of its own.
    void take_picked_folder(const misc::path& picked);

    /// Hands the folder to every spec, in its plain form. False, and nothing has happened, for one
    /// that the product must not be installed into. Throws std::invalid_argument for a spec
    /// without "APP_INSTALL_PATH".
    [[nodiscard]] bool accept_install_path();

    bind::property<std::string> install_path; ///< as typed, UTF-8
    installer_app* app;
};

} // namespace nrd::installer::model
