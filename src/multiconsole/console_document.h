#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace nrd::multiconsole {

/// A text console of the process: a window of its own on Windows, lines on standard error under
/// the document's title elsewhere. It is open while the object lives, and any thread may print.
class console_document {
public:
    /// `title` is UTF-8.
    static std::unique_ptr<console_document> open(const std::string& title);
    virtual ~console_document() = default;

    /// Appends the text, line feeds included, as it stands.
    virtual void print(std::u16string_view text) = 0;
};

} // namespace nrd::multiconsole
