#pragma once

#include "nui/widgets/screen.h"
#include "support/nui/frame_clock.h"
#include "support/nui/layout.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace nui::test {

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

    /// Of the window that was opened last, unless another is given.
    void move(int x, int y);
    void press(std::uint8_t button = 1);
    void release(std::uint8_t button = 1, std::uint8_t clicks = 1);
    void wheel(int notches);
    void key(std::int32_t keycode, std::uint16_t modifiers = 0, bool down = true,
             bool repeat = false);
    void type(const std::string& text);
    void windowEvent(std::uint8_t subEvent, const Screen& screen);

    FrameClock clock;
    std::shared_ptr<Screen> target; ///< gets the input

private:
    std::vector<std::unique_ptr<LayoutText>> layouts_;
    int x_ = 0;
    int y_ = 0;
};

} // namespace nui::test
