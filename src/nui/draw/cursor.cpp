#include "nui/draw/cursor.h"

#include "nui/draw/surface.h"
#include "nui/engine/engine.h"

#include <SDL2/SDL_mouse.h>

namespace nui {

void FreeCursor::operator()(SDL_Cursor* cursor) const
{
    SDL_FreeCursor(cursor);
}

CursorPtr loadCursor(const std::string& name, int hotX, int hotY)
{
    const SurfacePtr picture = loadSurface(engine().resourcePath(name));
    return CursorPtr(picture ? SDL_CreateColorCursor(picture.get(), hotX, hotY) : nullptr);
}

} // namespace nui
