#pragma once

namespace nrd::installer::model {

class installer_app;

struct end_tab_model {
    explicit end_tab_model(installer_app& shared) : app(&shared) {}

    installer_app* app;
};

} // namespace nrd::installer::model
