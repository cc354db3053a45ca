#pragma once

#include "nui/widgets/screen.h"
#include "support/nui/frame_clock.h"
#include "support/nui/layout.h"

#include <SDL_keycode.h>

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

namespace nui::test {

struct Key {
    Key(std::int32_t keycode, std::uint16_t held = 0) : code(keycode), modifiers(held) {}

    std::int32_t code;
    std::uint16_t modifiers;
};

// Key modifiers.
inline constexpr std::uint16_t Shift = KMOD_LSHIFT;
inline constexpr std::uint16_t Control = KMOD_RCTRL;

/// The toolkit started whole, with real windows and a clock that the test moves. Input goes
/// through SDL's queue and takes effect with the next turn of the loop, which each call makes.
/// Gone, with its windows, with the object.
class RunningToolkit {
public:
    RunningToolkit();
    ~RunningToolkit();
    RunningToolkit(const RunningToolkit&) = delete;
    RunningToolkit& operator=(const RunningToolkit&) = delete;

    /// Opens the screen with the id "screen" of a layout file, and draws a frame. It gets the
    /// keyboard. Keys may be written with single quotation marks.
    std::shared_ptr<Screen> open(std::string layoutJson, Widget* parent = nullptr);
    /// A turn of the loop and a frame, 100 ms later.
    void frame();
    /// A turn of the loop without time.
    void turn();
    /// A turn of the loop after so many milliseconds.
    void turnAfter(std::uint64_t milliseconds);

    /// Of the window that was opened last, unless another is given.
    void move(int x, int y);
    void press(std::uint8_t button = 1);
    /// These two move there first.
    void press(int x, int y, std::uint8_t button = 1);
    void click(int x, int y, std::uint8_t button = 1);
    void release(std::uint8_t button = 1, std::uint8_t clicks = 1);
    void wheel(int notches);
    void key(std::int32_t keycode, std::uint16_t modifiers = 0, bool repeat = false);
    /// One after the other.
    void keys(std::initializer_list<Key> pressed);
    void type(const std::string& text);
    void windowEvent(std::uint8_t subEvent, const Screen& screen);

    FrameClock clock;
    std::shared_ptr<Screen> target; ///< gets the input

private:
    void pushButton(std::uint32_t type, std::uint8_t number, std::uint8_t clicks);

    std::vector<std::unique_ptr<LayoutText>> layouts_;
    int x_ = 0;
    int y_ = 0;
};

} // namespace nui::test
