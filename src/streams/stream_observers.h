#pragma once

#include "multiconsole/console_document.h"
#include "streams/stream.h"

#include <memory>
#include <ostream>

namespace nrd::streams {

/// Appends each text, and a line feed of its own, to an output stream that the caller keeps. The
/// line is on disk when notify returns.
class stream_observer_os : public stream_observer {
public:
    explicit stream_observer_os(std::ostream& out) : out_(out) {}
    void notify(const char* stream_name, std::size_t stream_name_length, const char* text,
                std::size_t text_length) override;

private:
    std::ostream& out_;
};

/// Prints into a console document of its own.
class stream_observer_multiconsole : public stream_observer {
public:
    explicit stream_observer_multiconsole(const std::string& title);
    void notify(const char* stream_name, std::size_t stream_name_length, const char* text,
                std::size_t text_length) override;

private:
    std::unique_ptr<multiconsole::console_document> document_;
};

} // namespace nrd::streams
