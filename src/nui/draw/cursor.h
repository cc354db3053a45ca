#pragma once

#include <memory>
#include <string>

struct SDL_Cursor;

namespace nui {

struct FreeCursor {
    void operator()(SDL_Cursor* cursor) const;
};

using CursorPtr = std::unique_ptr<SDL_Cursor, FreeCursor>;

/// A pointer's picture in colour, from an image of the resource directory; the hot spot is in its
/// pixels. Null for what cannot be loaded. The caller sets it, and keeps it while it shows.
[[nodiscard]] CursorPtr loadCursor(const std::string& name, int hotX, int hotY);

} // namespace nui
