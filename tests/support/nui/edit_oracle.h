#pragma once

#include <cstddef>
#include <string>

namespace nui::test {

/// Edits a text field and a plain model of one alike, as the bytes say: first the field's rules,
/// then keys, typed and composed texts, clicks and calls. Answers where they first differ in
/// text, caret or anchor; empty if they never do. There must be an engine, and its edit font must
/// be a FixedFont.
[[nodiscard]] std::string firstDifferenceInEdits(const unsigned char* bytes, std::size_t count);

} // namespace nui::test
