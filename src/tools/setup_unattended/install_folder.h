#pragma once

#include "misc/text.h"

#include <stdexcept>

namespace nrd::tools {

/// The text says what the folder is refused for: a clause, or nothing where the wizard has no
/// reason either.
class folder_refused : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The install folder as the specs take it. Beyond what the wizard's field refuses, this refuses
/// what would end up in another place than it says, since nobody looks on here.
misc::text32 settle_install_folder(const misc::text32& text);

/// The same for one that the user typed: it counts from the current directory.
misc::text32 settle_typed_install_folder(const misc::text32& text);

} // namespace nrd::tools
