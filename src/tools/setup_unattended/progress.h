#pragma once

#include <cstddef>
#include <ostream>
#include <string>

namespace nrd::tools {

/// Tells how far an installation has come: as a bar that is drawn over on a terminal, as a line for
/// each file elsewhere.
class progress {
public:
    /// `width` is the terminal's, 0 for what is none. Nothing is printed if `quiet`.
    progress(std::ostream& out, std::size_t width, bool quiet, std::size_t total);

    /// A file of this name (UTF-8) is about to be copied.
    void next(const std::string& name);
    /// Takes the bar away, so that other text can follow.
    void end();

    [[nodiscard]] std::size_t done() const { return done_; }

private:
    void draw_bar(const std::string& name);

    std::ostream& out_;
    std::size_t width_;
    bool quiet_;
    std::size_t total_; ///< an estimate: the run may find folders that it has made itself
    std::size_t done_ = 0;
};

} // namespace nrd::tools
