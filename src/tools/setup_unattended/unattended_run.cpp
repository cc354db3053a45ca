#include "tools/setup_unattended/unattended_run.h"

#include "inst/installation/install_utils.h"
#include "inst/installer/core/install.h"
#include "misc/file_system.h"
#include "streams/streams.h"
#include "tools/setup_unattended/install_folder.h"
#include "tools/setup_unattended/install_plan.h"
#include "tools/setup_unattended/plan_json.h"
#include "tools/setup_unattended/plan_text.h"
#include "tools/setup_unattended/progress.h"
#include "tools/setup_unattended/run_observer.h"
#include "tools/setup_unattended/terminal.h"

#include <SDL2/SDL.h>
#include <exception>
#include <filesystem>
#include <regex>

namespace nrd::tools {

using misc::to_utf8;

namespace {

/// What an exception has to say, with the path where the error carries one.
std::string reason_of(const std::exception& error)
{
    if (const auto* from_files = dynamic_cast<const misc::filesystem_error*>(&error)) {
        return misc::describe(*from_files);
    }
    if (dynamic_cast<const std::regex_error*>(&error) != nullptr) {
        return std::string("a variable's name is no valid expression: ") + error.what();
    }
    return error.what();
}

std::string text_of(const installation::xml_error& error)
{
    return to_utf8(error.file) + ":" + std::to_string(error.line) + ":" +
           std::to_string(error.column) + ": " + error.description;
}

std::string join(const std::vector<std::string>& names)
{
    std::string text;
    for (const std::string& name : names) {
        text += (text.empty() ? "" : ", ") + name;
    }
    return text;
}

/// What a failed run has left of the installation before it: a clause, as the machine is now.
std::string fate_of_older(const installation::staging_decision& staging)
{
    if (!staging.backup_path) {
        return "; what was copied before stays";
    }
    if (!staging.moved_aside) {
        return "; the older installation could not be moved aside and may be damaged";
    }
    return misc::missing(*staging.backup_path)
               ? "; the older installation was put back"
               : "; the older installation was left in " + to_utf8(*staging.backup_path);
}

} // namespace

unattended_run::unattended_run(std::vector<std::string> args, std::ostream& out, std::ostream& err)
    : args_(std::move(args)), out_(out), err_(err), startup_(args_)
{
}

exit_code unattended_run::run()
{
    try {
        options_ = parse_options(args_);
    } catch (const wrong_options& error) {
        return refuse_options(error.what());
    }
    if (options_.help) {
        out_ << usage_text;
        return exit_code::done;
    }
    if (!open_json_file()) {
        return refuse_options("The file " + options_.json_file.value_or("") + " cannot be written");
    }
    const exit_code code = run_steps();
    if (!write_json(code)) {
        return fail(code == exit_code::done ? exit_code::not_configured : code,
                    "The file " + options_.json_file.value_or("") +
                        " could not be written to its end");
    }
    return code;
}

exit_code unattended_run::run_steps()
{
    if (options_.plan) {
        const misc::planned_changes changes; // from here on nothing is changed
        const exit_code code = prepare();
        return code == exit_code::done ? plan(changes) : code;
    }
    exit_code code = prepare();
    if (code == exit_code::done) {
        code = check_blockers();
    }
    return code == exit_code::done ? install() : code;
}

exit_code unattended_run::prepare()
{
    const exit_code code = start_up();
    return code == exit_code::done ? set_install_path() : code;
}

bool unattended_run::open_json_file()
{
    if (options_.json_file) {
        const std::string& name = *options_.json_file;
        json_file_.open(std::filesystem::path(std::u8string(name.begin(), name.end())),
                        std::ios::binary);
    }
    return !options_.json_file || json_file_.is_open();
}

exit_code unattended_run::start_up()
{
    // There is no window, so none of the machine's devices is needed.
    SDL_SetHint(SDL_HINT_VIDEODRIVER, "dummy");
    SDL_SetHint(SDL_HINT_AUDIODRIVER, "dummy");
    try {
        const vs_installer::startup_result result = startup_.run();
        if (result == vs_installer::startup_result::toolkit_failed) {
            return fail(exit_code::not_configured,
                        std::string("SDL cannot start: ") + SDL_GetError());
        }
        if (result == vs_installer::startup_result::locations_not_configured) {
            return fail(exit_code::not_configured,
                        "There is no install.xml in the package " + to_utf8(startup_.package_root));
        }
    } catch (const std::exception& error) {
        if (startup_.package_root.empty()) {
            return fail(exit_code::not_configured, "The start-up failed: " + reason_of(error));
        }
        // A spec is there as soon as its file is imported; when all are, the first is completed.
        const std::size_t imported = startup_.specs.size();
        const std::size_t faulty = imported < startup_.xml_paths.size() ? imported : 0;
        const char* const failed = imported < startup_.xml_paths.size()
                                       ? " cannot be used: "
                                       : " cannot be set up for this machine: ";
        return fail(exit_code::not_configured,
                    startup_.xml_errors.empty() ? package_text(faulty) + failed + reason_of(error)
                                                : text_of(startup_.xml_errors.front()));
    }
    // An install.xml behind the first may be malformed and yet go unnoticed so far.
    return startup_.xml_errors.empty()
               ? exit_code::done
               : fail(exit_code::not_configured, text_of(startup_.xml_errors.front()));
}

exit_code unattended_run::set_install_path()
{
    std::size_t position = 0;
    try {
        install_path_ =
            options_.path ? *options_.path : startup_.specs.front().var_value(U"APP_INSTALL_PATH");
        install_path_ = options_.path ? settle_typed_install_folder(install_path_)
                                      : settle_install_folder(install_path_);
        for (; position < startup_.specs.size(); ++position) {
            startup_.specs[position].set_var(U"APP_INSTALL_PATH", install_path_);
            installer::core::check_spec(startup_.specs[position]);
        }
    } catch (const folder_refused& refused) {
        return fail(exit_code::path_refused, "The folder \"" + to_utf8(install_path_) +
                                                 "\" cannot be an install folder" + refused.what());
    } catch (const std::exception& error) {
        return fail(exit_code::not_configured,
                    package_text(position) + " cannot be used: " + reason_of(error));
    }
    return exit_code::done;
}

exit_code unattended_run::check_blockers()
{
    const std::vector<std::string> blockers = installation::blocker_processes(startup_.specs);
    json_["blockers"] = blockers;
    if (blockers.empty()) {
        return exit_code::done;
    }
    return fail(exit_code::blocked,
                "The installation is blocked until these programs are closed: " + join(blockers));
}

std::size_t unattended_run::count_all_files() const
{
    std::size_t total = 0;
    for (const installation::spec& each : startup_.specs) {
        const misc::scoped_current_path folder(each.working_directory);
        total += installation::count_files(installer::core::packages_to_copy(each), "all");
    }
    return total;
}

exit_code unattended_run::install()
{
    try {
        progress shown(out_, terminal_width(), options_.quiet, count_all_files());
        bool all = true;
        // A package that fails does not keep the next one from being installed.
        for (const installation::spec& each : startup_.specs) {
            all = install_spec(each, shown) && all;
        }
        json_["files"] = shown.done();
        if (!all) {
            return exit_code::install_failed;
        }
        if (!options_.quiet) {
            out_ << to_utf8(startup_.specs.front().app_name()) << " is installed in "
                 << to_utf8(install_path_) << ": " << shown.done() << " files (" << log_text()
                 << ").\n";
        }
    } catch (const std::exception& error) {
        return fail(exit_code::install_failed, "The installation failed: " + reason_of(error));
    }
    return exit_code::done;
}

bool unattended_run::install_spec(const installation::spec& s, progress& shown)
{
    run_observer observer(shown);
    const misc::scoped_current_path folder(s.working_directory);
    bool finished = false;
    try {
        finished = installer::core::install(s, observer);
    } catch (const std::exception& error) {
        shown.end();
        const bool had_older = observer.staging().backup_path.has_value();
        throw std::runtime_error(reason_of(error) +
                                 (had_older ? fate_of_older(observer.staging()) : ""));
    }
    shown.end();
    if (finished) {
        if (!observer.refused_shortcuts().empty()) {
            err_ << "These shortcuts could not be made: " << join(observer.refused_shortcuts())
                 << " (" << log_text() << ").\n";
        }
        if (!observer.refused_keys().empty()) {
            err_ << "These registry keys were refused, and what was for them is missing: "
                 << join(observer.refused_keys()) << " (" << log_text() << ").\n";
        }
        return true;
    }
    const std::optional<installation::failure_decision>& failure = observer.failure();
    const std::string cause =
        failure ? to_utf8(failure->where) + ": " + failure->reason : "the engine gave no reason";
    fail(exit_code::install_failed,
         "The installation failed at " + cause + fate_of_older(observer.staging()));
    return false;
}

exit_code unattended_run::plan(const misc::planned_changes& changes)
{
    try {
        const install_plan made = make_plan(startup_.specs, changes);
        json_["plan"] = plan_to_json(made);
        if (!options_.quiet) {
            print_plan(made, out_);
            out_.flush();
        }
        if (!out_) {
            return fail(exit_code::not_configured, "The plan could not be printed to its end");
        }
    } catch (const std::exception& error) {
        return fail(exit_code::install_failed, "An installation would fail: " + reason_of(error));
    }
    return exit_code::done;
}

std::string unattended_run::package_text(std::size_t position) const
{
    const bool known = position < startup_.xml_paths.size();
    return "The package " + to_utf8(known ? startup_.xml_paths[position] : startup_.package_root);
}

std::string unattended_run::log_text() const
{
    if (options_.plan) {
        return "a plan writes no log";
    }
    if (const auto file = streams::stream_file_path("installer")) {
        return "log: " + to_utf8(*file);
    }
    return "no log: its folder was not there yet when this run started, the next run has one in " +
           to_utf8(startup_.company_dir / "log" / "installer");
}

exit_code unattended_run::refuse_options(const std::string& sentence)
{
    err_ << sentence << " (no log: nothing was begun).\n";
    return exit_code::wrong_options;
}

exit_code unattended_run::fail(exit_code code, const std::string& sentence)
{
    err_ << sentence << " (" << log_text() << ").\n";
    json_["errors"].push_back(sentence);
    return code;
}

bool unattended_run::write_json(exit_code code)
{
    if (!json_file_.is_open()) {
        return true;
    }
    const auto log = options_.plan ? std::nullopt : streams::stream_file_path("installer");
    nlohmann::ordered_json all = {
        {"exit_code", static_cast<int>(code)},
        {"outcome", code != exit_code::done ? "failed"
                    : options_.plan         ? "planned"
                                            : "installed"},
        {"install_path", to_utf8(install_path_)},
        {"log", log ? nlohmann::ordered_json(to_utf8(*log)) : nlohmann::ordered_json()}};
    all.update(json_);
    json_file_ << all.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
    json_file_.close();
    return !json_file_.fail();
}

} // namespace nrd::tools
