#pragma once

#include "misc/planned_changes.h"
#include "tools/setup_unattended/options.h"
#include "vs/vs_installer/startup.h"

#include <fstream>
#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace nrd::tools {

enum class exit_code {
    done = 0,
    not_configured = 1, ///< start-up or configuration failed
    wrong_options = 2,
    blocked = 3, ///< by running programs
    install_failed = 4,
    path_refused = 5,
};

/// One run of setup_unattended: the start-up of the wizard's program, then the questions that its
/// first page asks, then the engine, with a sentence in place of each dialog.
class unattended_run {
public:
    /// `args` are UTF-8, the program's name first. What the user asked to see goes to `out`, each
    /// failure as one sentence to `err`.
    unattended_run(std::vector<std::string> args, std::ostream& out, std::ostream& err);

    exit_code run();

private:
    exit_code run_steps();
    exit_code prepare();
    bool open_json_file();
    exit_code start_up();
    exit_code set_install_path();
    exit_code check_blockers();
    exit_code install();
    exit_code plan(const misc::planned_changes& changes);
    bool install_spec(const installation::spec& s, class progress& shown);
    [[nodiscard]] std::size_t count_all_files() const;
    /// The install.xml at `position`, or the package as a whole if there is none.
    [[nodiscard]] std::string package_text(std::size_t position) const;
    [[nodiscard]] std::string log_text() const;
    exit_code refuse_options(const std::string& sentence);
    exit_code fail(exit_code code, const std::string& sentence);
    /// False if there is a file to write and it was not written to its end.
    bool write_json(exit_code code);

    std::vector<std::string> args_;
    std::ostream& out_;
    std::ostream& err_;
    unattended_options options_;
    vs_installer::startup startup_;
    misc::text32 install_path_;
    nlohmann::ordered_json json_;
    std::ofstream json_file_;
};

} // namespace nrd::tools
