#pragma once

namespace nrd::installer::model {

class installer_app;

struct installer_window_model {
    explicit installer_window_model(installer_app& shared) : app(&shared) {}

    installer_app* app;
};

} // namespace nrd::installer::model
