#include "inst/installer/ui/folder_picker.h"

#include "misc/host_file_system.h"
#include "streams/installer_log.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace nrd::installer::ui {

namespace {

struct close_file {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using file_ptr = std::unique_ptr<std::FILE, close_file>;

constexpr int cancelled = 1; // exit status of all of them

/// What a program that ran to its end has printed, and its exit status.
struct answer {
    std::string text;
    int status = 0;
};

struct pipe_ends {
    file_ptr reading;
    file_ptr writing;
};

pipe_ends make_pipe()
{
    std::array<int, 2> ends = {};
    if (pipe(ends.data()) != 0) {
        return {};
    }
    return {file_ptr(fdopen(ends[0], "r")), file_ptr(fdopen(ends[1], "w"))};
}

/// Nothing if there is no such program.
std::optional<answer> ask(std::vector<std::string> command)
{
    pipe_ends ends = make_pipe();
    if (!ends.reading || !ends.writing) {
        return std::nullopt;
    }
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (std::string& each : command) {
        arguments.push_back(each.data());
    }
    arguments.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, fileno(ends.writing.get()), STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, fileno(ends.reading.get()));
    pid_t child = 0;
    const int failure =
        posix_spawnp(&child, arguments.front(), &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    ends.writing.reset(); // else reading would not end
    if (failure != 0) {
        return std::nullopt;
    }

    answer result;
    std::array<char, 256> piece = {};
    while (std::fgets(piece.data(), piece.size(), ends.reading.get()) != nullptr) {
        result.text += piece.data();
    }
    waitpid(child, &result.status, 0);
    return result;
}

} // namespace

std::optional<misc::path> pick_folder(const misc::path& start)
{
    const std::string folder = misc::to_host(start).string();
    // Each desktop brings one of them. A separator at the end makes it the folder to look into.
    const std::vector<std::string> commands[] = {
        {"zenity", "--file-selection", "--directory", "--filename=" + folder + "/"},
        {"kdialog", "--getexistingdirectory", folder},
    };
    for (const std::vector<std::string>& command : commands) {
        std::optional<answer> given = ask(command);
        if (!given) {
            continue;
        }
        while (given->text.ends_with('\n')) {
            given->text.pop_back();
        }
        if (WIFEXITED(given->status) && WEXITSTATUS(given->status) == cancelled) {
            return std::nullopt;
        }
        if (given->status == 0 && !given->text.empty()) {
            return misc::from_host(given->text);
        }
        installer_log("The folder picker " + command.front() + " has failed.");
    }
    installer_log("The system has no folder picker.");
    return std::nullopt;
}

} // namespace nrd::installer::ui
