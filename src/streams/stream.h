#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace nrd::streams {

/// Is told of every text that is written to a stream it is attached to.
class stream_observer {
public:
    virtual ~stream_observer() = default;
    virtual void notify(const char* stream_name, std::size_t stream_name_length, const char* text,
                        std::size_t text_length) = 0;
};

class stream_subject {
public:
    virtual ~stream_subject() = default;
    /// Neither takes ownership. An observer sees a stream at most once.
    virtual void attach(stream_observer* observer) = 0;
    virtual void detach(stream_observer* observer) = 0;
    [[nodiscard]] virtual const std::string& name() const = 0;
};

/// A named channel that hands text on, unchanged, to its observers: first attached, first told. It
/// takes no lock; what writes and attaches must not do both at once.
class stream : public stream_subject {
public:
    using producer = std::function<std::string()>;

    explicit stream(std::string name) : name_(std::move(name)) {}

    void attach(stream_observer* observer) override;
    void detach(stream_observer* observer) override;
    [[nodiscard]] const std::string& name() const override { return name_; }

    void write(const char* text, std::size_t length);
    /// Does not ask for the text if nobody would see it.
    void write_lazy(const producer& make_text);

private:
    std::vector<stream_observer*> observers_;
    std::string name_;
};

} // namespace nrd::streams
