#pragma once

#include <bit>
#include <cstdint>
#include <vector>

namespace nui {

/// Lasts while a container is laid out, with all that is in it. Nothing that sizes follow from
/// changes meanwhile.
class LayoutPass {
public:
    LayoutPass();
    ~LayoutPass();
    LayoutPass(const LayoutPass&) = delete;
    LayoutPass& operator=(const LayoutPass&) = delete;

    /// Of the pass that goes on, counted from the outermost container; never 0.
    [[nodiscard]] static std::uint64_t number();
};

/// The sizes that one container has been found to have in the pass that goes on.
class KnownSizes {
public:
    /// What a container's size follows from, its keys and its content apart. Compared by bits, as
    /// sizes that overflowed are no numbers.
    struct Given {
        Given(float givenWidth, float givenHeight, std::uint32_t givenFlags)
            : width(std::bit_cast<std::uint32_t>(givenWidth)),
              height(std::bit_cast<std::uint32_t>(givenHeight)), flags(givenFlags)
        {
        }

        [[nodiscard]] bool operator==(const Given&) const = default;

        std::uint32_t width;
        std::uint32_t height;
        std::uint32_t flags;
    };

    /// Sets width and height; false if they aren't known for that.
    [[nodiscard]] bool recall(const Given& given, float& width, float& height) const;
    void keep(const Given& given, float width, float height);

private:
    struct Known {
        Given given;
        float width;
        float height;
    };

    std::vector<Known> known_;
    std::uint64_t pass_ = 0;
};

} // namespace nui
