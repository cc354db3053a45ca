#pragma once

#include "misc/path.h"

#include <memory>

namespace nrd::test {

/// A process of its own that runs a program file of the given name, and does nothing; it ends with
/// the object.
class running_program {
public:
    /// The file is made: a copy of the program "sleeper" beside the test program.
    explicit running_program(const misc::path& file);
    ~running_program();
    running_program(const running_program&) = delete;
    running_program& operator=(const running_program&) = delete;

private:
    struct child;
    std::unique_ptr<child> child_;
};

} // namespace nrd::test
