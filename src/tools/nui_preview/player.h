#pragma once

#include "nui/engine/screen_table.h"
#include "tools/nui_preview/play_script.h"
#include "tools/nui_preview/virtual_input.h"

#include <string>
#include <vector>

namespace nrd::tools::preview {

/// Plays a script on the open windows; after each command a frame is drawn.
class player {
public:
    /// `input` outlives the player. Commands are for the current screen, as the toolkit has it.
    explicit player(virtual_input& input) : input_(input) {}

    /// Until the end, the command quit, or the toolkit's own quit. Throws script_error for a
    /// command that cannot be carried out, and a failure for a file that cannot be written.
    void play(const std::vector<play_command>& commands);

private:
    [[noreturn]] void fail(const std::string& sentence) const;
    [[nodiscard]] const nui::ScreenPtr& screen() const;
    /// By name, and if nobody has it by id.
    [[nodiscard]] nui::WidgetPtr find(const std::string& name) const;

    void run(const move_pointer& move);
    void run(const press_button& press);
    void run(const release_button& release);
    void run(const click_widget& click);
    void run(const turn_wheel& turn);
    void run(const type_text& typed);
    void run(const hit_key& hit);
    void run(const focus_widget& focus);
    void run(const wait_for& wait);
    void run(const show_page& show);
    void run(const write_tree_file& write);
    void run(const write_picture_file& write);
    void run(const quit_playing& quit);

    virtual_input& input_;
    int line_ = 0;
    bool ended_ = false;
};

} // namespace nrd::tools::preview
