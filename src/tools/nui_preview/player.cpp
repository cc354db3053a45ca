#include "tools/nui_preview/player.h"

#include "nui/engine/engine.h"
#include "nui/widgets/screen.h"
#include "tools/nui_preview/failure.h"
#include "tools/nui_preview/frames.h"
#include "tools/nui_preview/host_path.h"
#include "tools/nui_preview/page_switch.h"
#include "tools/nui_preview/picture.h"
#include "tools/nui_preview/widget_tree.h"

#include <SDL2/SDL.h>

namespace nrd::tools::preview {

namespace {

nui::Widget* find_id(nui::Widget& widget, const std::string& id)
{
    if (widget.id == id) {
        return &widget;
    }
    if (const auto* const container = dynamic_cast<nui::Container*>(&widget)) {
        for (const nui::WidgetPtr& child : container->children()) {
            if (nui::Widget* const found = find_id(*child, id)) {
                return found;
            }
        }
    }
    return nullptr;
}

} // namespace

void player::play(const std::vector<play_command>& commands)
{
    for (const play_command& command : commands) {
        line_ = command.line;
        input_.set_window(screen()->windowId());
        std::visit([this](const auto& action) { run(action); }, command.action);
        if (ended_ || nui::engine().hasQuit()) {
            return;
        }
    }
}

void player::fail(const std::string& sentence) const
{
    throw script_error(line_, sentence);
}

const nui::ScreenPtr& player::screen() const
{
    const nui::ScreenPtr& current = nui::engine().screens.current();
    if (!current) {
        fail("There is no window left to play on.");
    }
    return current;
}

nui::WidgetPtr player::find(const std::string& name) const
{
    nui::Screen& root = *screen();
    nui::Widget* found = root.findByName(name);
    if (found == nullptr) {
        found = find_id(root, name);
    }
    if (found == nullptr) {
        fail("There is no widget \"" + name + "\".");
    }
    return found->shared_from_this();
}

void player::run(const move_pointer& move)
{
    input_.move(move.x, move.y);
    turn();
}

void player::run(const press_button& press)
{
    input_.press(press.button);
    turn();
}

void player::run(const release_button& release)
{
    input_.release(release.button);
    turn();
}

void player::run(const click_widget& click)
{
    const nui::WidgetPtr widget = find(click.name);
    if (!widget->isOnScreen()) {
        fail("The widget \"" + click.name + "\" is not on the screen.");
    }
    run(move_pointer{static_cast<int>(widget->x + widget->width / 2),
                     static_cast<int>(widget->y + widget->height / 2)});
    run(press_button{SDL_BUTTON_LEFT});
    run(release_button{SDL_BUTTON_LEFT});
}

void player::run(const turn_wheel& turned)
{
    input_.wheel(turned.notches);
    turn();
}

void player::run(const type_text& typed)
{
    if (typed.text.size() < SDL_TEXTINPUTEVENT_TEXT_SIZE) {
        input_.text(typed.text);
    } else {
        // SDL's event is too small for it, so it comes to the keyboard behind the queue.
        nui::TextEvent event(nui::text::Committed);
        event.text = typed.text;
        nui::engine().keyboard.focusTaken = false;
        nui::engine().keyboard.dispatchText(screen()->windowId(), event);
    }
    turn();
}

void player::run(const hit_key& hit)
{
    input_.key(true, hit.key, hit.modifiers);
    turn();
    input_.key(false, hit.key, hit.modifiers);
    turn();
}

void player::run(const focus_widget& focus)
{
    const nui::WidgetPtr widget = find(focus.name);
    nui::engine().setFocus(widget);
    if (!widget->contains(screen()->focusedWidget.get())) {
        fail("The widget \"" + focus.name + "\" cannot have the focus, as its window has not.");
    }
    turn();
}

void player::run(const wait_for& wait)
{
    input_.pass_time(wait.seconds);
    run_for(wait.seconds);
    nui::engine().draw(false);
}

void player::run(const show_page& show)
{
    if (!switch_to_page(*screen(), show.name)) {
        fail("There is no page \"" + show.name + "\".");
    }
    turn();
}

void player::run(const write_tree_file& write)
{
    try {
        write_file(write.file, tree_text(*screen()));
    } catch (const failure& error) {
        fail(error.what());
    }
}

void player::run(const write_picture_file& write)
{
    try {
        write_picture(screen(), write.file);
    } catch (const failure& error) {
        fail(error.what());
    }
}

void player::run(const quit_playing& /*quit*/)
{
    ended_ = true;
}

} // namespace nrd::tools::preview
