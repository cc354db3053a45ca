#pragma once

#include <cstdint>
#include <exception>

// Private to the engine: who calls install() learns of it by its result.

namespace nrd::installer::core {

/// Ends a run and has the back-up put back. It carries no text, since the step that raises it has
/// logged what happened.
struct install_error : std::exception {
    static constexpr std::int32_t not_running_as_admin = 0;
    static constexpr std::int32_t reg_key_does_not_exist = 1;
    static constexpr std::int32_t in_file_does_not_exist = 3;
    static constexpr std::int32_t failed_to_copy = 4;

    explicit install_error(std::int32_t error_code);
    [[nodiscard]] const char* what() const noexcept override { return "Unknown exception"; }

    std::int32_t code;
};

} // namespace nrd::installer::core
