#pragma once

#include "misc/path.h"

#include <memory>

namespace nrd::misc {

/// Makes `location` + ".lnk", a shell link to `destination`, and its folder if that is missing; no
/// working directory is set in the link. Gives the link's path, or empty text on failure.
text32 create_shortcut(const text32& location, const text32& destination);

/// The platform's part of it.
class shell_link {
public:
    /// Null if the system's shell is not to be had.
    static std::unique_ptr<shell_link> make();
    virtual ~shell_link() = default;
    /// Writes the link's file into a folder that exists; false on failure.
    virtual bool save(const path& link, const text32& destination) = 0;
};

} // namespace nrd::misc
