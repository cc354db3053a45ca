#pragma once

#include <cstdint>
#include <string>

namespace nui {

/// Letters that a user types to get to an item. Those that follow each other within a second
/// belong together.
class TypeAhead {
public:
    /// Committed text, UTF-8. False for what begins nothing: no text, or a blank alone.
    bool add(const std::string& typed);
    /// Whether the next letter will belong to those that there are.
    [[nodiscard]] bool isRunning() const;
    /// All that belongs together; ASCII letters in lower case.
    [[nodiscard]] const std::string& text() const { return text_; }
    /// The letter, if the text is one letter several times, and else empty.
    [[nodiscard]] std::string repeatedLetter() const;

private:
    std::string text_;
    std::uint64_t end_ = 0; ///< of the time in which letters are added, by the engine's clock
};

} // namespace nui
