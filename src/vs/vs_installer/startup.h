#pragma once

#include "inst/installation/parser.h"
#include "inst/installation/spec.h"
#include "misc/path.h"

#include <string>
#include <vector>

namespace nrd::vs_installer {

enum class startup_result {
    ready,
    toolkit_failed,           ///< SDL cannot start
    locations_not_configured, ///< there is no spec to complete
};

/// The way of every program of the package from its command line to specs that are complete for
/// this machine. The steps stand in a fixed order, since later ones lean on earlier ones. Runs
/// once, on the main thread. Nothing is caught here: bad packages end in the exceptions of the
/// import and of configure_install_locations, folders that cannot be made in filesystem_error.
class startup {
public:
    /// `args` are UTF-8, the program's name first.
    explicit startup(std::vector<std::string> args);

    startup_result run();

    misc::path company_dir;  ///< "Tavrolen Corporation" in the settings folder
    misc::path exe_path;     ///< of the running program, unless another was set before the run
    misc::path data_dir;     ///< "resources" beside the program
    misc::path package_root; ///< three folders above the program's
    std::vector<misc::path> xml_paths;
    installation::specs specs; ///< one for each of xml_paths; only the first is completed
    /// Faults of the install.xml files that could not be parsed; a default spec stands for each.
    std::vector<installation::xml_error> xml_errors;

private:
    void create_user_folders();
    void log_arguments() const;
    static bool start_sdl();
    void find_locations();
    void import_specs();

    std::vector<std::string> args_;
};

} // namespace nrd::vs_installer
