#pragma once

#include <stdexcept>

namespace nrd::tools::preview {

/// What ends a preview; the text is a sentence for the author.
struct failure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

} // namespace nrd::tools::preview
