#pragma once

#include <string>

namespace nrd::test {

/// What a console document with the given title shows. The object is there before the document is,
/// and `text` is asked for while the document is open.
class console_text {
public:
    /// UTF-8, and the only document of that title.
    explicit console_text(std::string title);
    ~console_text();
    console_text(const console_text&) = delete;
    console_text& operator=(const console_text&) = delete;

    /// False once the document is closed; where it is no window, true.
    [[nodiscard]] bool is_open() const;
    /// What was printed so far, in whole lines.
    [[nodiscard]] std::string text();

private:
    std::string title_;
};

} // namespace nrd::test
