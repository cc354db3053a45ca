#pragma once

#include "streams/stream.h"

#include <functional>
#include <string>

namespace nrd::test {

/// Does something at the moment when a line with the given words is first written to the stream
/// "installer": what happens on the machine in the middle of a run.
class at_log_line : public streams::stream_observer {
public:
    at_log_line(std::string words, std::function<void()> happening);
    ~at_log_line() override;
    at_log_line(const at_log_line&) = delete;
    at_log_line& operator=(const at_log_line&) = delete;

    void notify(const char* stream_name, std::size_t stream_name_length, const char* text,
                std::size_t text_length) override;

private:
    std::string words_;
    std::function<void()> happening_;
};

} // namespace nrd::test
