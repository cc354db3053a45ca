#pragma once

#include <cstdint>
#include <string>

union SDL_Event;

namespace nrd::tools::preview {

/// A pointer and a keyboard of the preview's own, whose events go through SDL's queue like those
/// of real ones.
class virtual_input {
public:
    /// From now on the real pointer is not heard, so that it cannot show in pictures.
    virtual_input();
    virtual_input(const virtual_input&) = delete;
    virtual_input& operator=(const virtual_input&) = delete;
    ~virtual_input();

    /// The window that further events are for; SDL's id.
    void set_window(std::uint32_t window_id) { window_id_ = window_id; }
    void move(int x, int y);
    void press(std::uint8_t button);
    void release(std::uint8_t button);
    void wheel(int notches);
    void key(bool down, std::int32_t key, std::uint16_t modifiers);
    /// At most 31 bytes of UTF-8, what SDL's event holds.
    void text(const std::string& text);
    /// Time that the script let pass: it ends a double click.
    void pass_time(double seconds) { since_press_ += seconds; }

private:
    void push_button(std::uint8_t button, bool down);
    /// SDL's rule: presses in quick succession at one place count up.
    void count_click(std::uint8_t button);

    std::uint32_t window_id_ = 0;
    int x_ = 0;
    int y_ = 0;
    std::uint32_t held_ = 0; ///< SDL_BUTTON masks
    std::uint8_t clicks_ = 0;
    std::uint8_t clicked_button_ = 0;
    int click_x_ = 0;
    int click_y_ = 0;
    double since_press_ = 0; ///< seconds
};

} // namespace nrd::tools::preview
