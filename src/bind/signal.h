#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace nrd::bind {

class signal;

/// One listener of a signal; it listens as long as this object lives. May outlive the signal.
class link {
public:
    link() = default;
    link(link&&) noexcept = default;
    /// The former listener goes.
    link& operator=(link&&) noexcept = default;
    link(const link&) = delete;
    link& operator=(const link&) = delete;
    ~link() = default;

    void drop() { call_.reset(); }
    [[nodiscard]] bool isLinked() const { return call_ != nullptr; }

private:
    friend class signal;

    using callable = std::function<void()>;

    explicit link(std::shared_ptr<callable> call) : call_(std::move(call)) {}

    std::shared_ptr<callable> call_;
};

/// Tells its listeners, in the order in which they came, on the calling thread. A listener may
/// add and drop listeners, itself included, and emit again.
class signal {
public:
    signal() = default;
    signal(const signal&) = delete;
    signal& operator=(const signal&) = delete;
    ~signal() = default;

    [[nodiscard]] link connect(std::function<void()> call)
    {
        // Dropped ones are swept out here, where nothing walks the list by reference.
        std::erase_if(calls_, [](const auto& known) { return known.expired(); });
        auto shared = std::make_shared<link::callable>(std::move(call));
        calls_.emplace_back(shared);
        return link(std::move(shared));
    }

    void emit() const
    {
        const std::vector<std::weak_ptr<link::callable>> calls = calls_;
        for (const std::weak_ptr<link::callable>& known : calls) {
            if (const std::shared_ptr<link::callable> call = known.lock())
                (*call)();
        }
    }

private:
    std::vector<std::weak_ptr<link::callable>> calls_;
};

} // namespace nrd::bind
