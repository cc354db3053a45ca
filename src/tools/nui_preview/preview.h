#pragma once

#include "nui/engine/screen_table.h"
#include "tools/nui_preview/file_watch.h"
#include "tools/nui_preview/options.h"
#include "tools/nui_preview/play_script.h"

#include <ostream>
#include <string>
#include <vector>

namespace nrd::tools::preview {

enum class exit_code {
    done = 0,
    faulty = 1, ///< the layout file, the script, or something that they need
    wrong_options = 2,
};

/// One run of nui_preview.
class preview {
public:
    /// `args` are UTF-8, the program's name first. Every failure is one sentence on `err`.
    preview(std::vector<std::string> args, std::ostream& out, std::ostream& err);
    preview(const preview&) = delete;
    preview& operator=(const preview&) = delete;
    ~preview();

    exit_code run();

private:
    exit_code run_steps();
    [[nodiscard]] std::vector<play_command> read_script() const;
    void start_toolkit();
    /// Opens the file's window in place of the one that is shown. False, with sentences, for a
    /// faulty file: outputs show what there is of it, else the window that is shown stays.
    bool open_layout();
    void show(const nui::ScreenPtr& next);
    void write_outputs() const;
    void watch();

    std::vector<std::string> args_;
    std::ostream& out_;
    std::ostream& err_;
    preview_options options_;
    std::string file_; ///< absolute
    nui::ScreenPtr screen_;
    std::vector<std::string> files_; ///< that the window was read from
    bool toolkit_started_ = false;
};

} // namespace nrd::tools::preview
