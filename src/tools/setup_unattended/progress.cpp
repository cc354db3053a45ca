#include "tools/setup_unattended/progress.h"

#include "misc/text.h"

#include <algorithm>

namespace nrd::tools {

namespace {

constexpr std::size_t bar_cells = 30;

/// At most `columns` characters of the text.
std::string cut(const std::string& text, std::size_t columns)
{
    const misc::text32 wide = misc::to_text32(std::string_view(text));
    return misc::to_utf8(std::u32string_view(wide).substr(0, columns));
}

} // namespace

progress::progress(std::ostream& out, std::size_t width, bool quiet, std::size_t total)
    : out_(out), width_(width), quiet_(quiet), total_(total)
{
}

void progress::next(const std::string& name)
{
    ++done_;
    if (quiet_) {
        return;
    }
    if (width_ > 0) {
        draw_bar(name);
    } else {
        out_ << "[" << done_ << "/" << std::max(done_, total_) << "] " << name << '\n';
    }
}

void progress::draw_bar(const std::string& name)
{
    const std::size_t total = std::max(done_, total_);
    const std::size_t filled = bar_cells * done_ / total;
    const std::string text = "[" + std::string(filled, '#') + std::string(bar_cells - filled, '.') +
                             "] " + std::to_string(100 * done_ / total) + " % " + name;
    // The last column stays free: a character there would break the line.
    out_ << "\r\x1b[K" << cut(text, width_ - 1) << std::flush;
}

void progress::end()
{
    if (!quiet_ && width_ > 0 && done_ > 0) {
        out_ << "\r\x1b[K" << std::flush;
    }
}

} // namespace nrd::tools
