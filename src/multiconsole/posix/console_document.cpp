#include "multiconsole/console_document.h"

#include "misc/text.h"

#include <iostream>
#include <mutex>

namespace nrd::multiconsole {

namespace {

class error_stream_document final : public console_document {
public:
    explicit error_stream_document(std::string title) : title_(std::move(title)) {}

    void print(std::u16string_view text) override
    {
        const std::lock_guard lock(mutex_);
        for (const char16_t unit : text) {
            line_ += unit;
            if (unit == u'\n') {
                flush_line();
            }
        }
    }

    ~error_stream_document() override
    {
        if (!line_.empty()) {
            line_ += u'\n';
            flush_line();
        }
    }

private:
    void flush_line()
    {
        std::cerr << title_ + ": " + misc::to_utf8(line_) << std::flush;
        line_.clear();
    }

    std::mutex mutex_;
    std::string title_;
    std::u16string line_;
};

} // namespace

std::unique_ptr<console_document> console_document::open(const std::string& title)
{
    return std::make_unique<error_stream_document>(title);
}

} // namespace nrd::multiconsole
