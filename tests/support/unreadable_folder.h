#pragma once

#include "misc/path.h"

#include <memory>

namespace nrd::test {

/// While it lives, the folder is there and the thread that made it cannot list it.
class unreadable_folder {
public:
    /// The folder exists.
    explicit unreadable_folder(const misc::path& folder);
    ~unreadable_folder();
    unreadable_folder(const unreadable_folder&) = delete;
    unreadable_folder& operator=(const unreadable_folder&) = delete;

private:
    struct restorer;
    std::unique_ptr<restorer> restorer_;
};

} // namespace nrd::test
