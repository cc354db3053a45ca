#pragma once

#include "misc/path.h"

#include <memory>

namespace nrd::test {

/// While it lives, some program holds a file or folder open: it can be neither written nor moved
/// nor removed.
class locked_path {
public:
    /// The path exists.
    explicit locked_path(const misc::path& locked);
    ~locked_path();
    locked_path(const locked_path&) = delete;
    locked_path& operator=(const locked_path&) = delete;

private:
    struct holder;
    std::unique_ptr<holder> holder_;
};

} // namespace nrd::test
