#pragma once

#include <cstdint>

namespace nui {

class WindowHandle;

// Which window GL draws into, and the one context that all windows share. State of the drawing
// layer; for the loop's thread.

/// Sets the attributes that windows and contexts are made with; before the first window.
void setGlAttributes();
/// Makes the hidden 1 by 1 window and the shared context, so that textures can be made before
/// any window is open. False, with a line in SDL's log, when the system gives none.
bool openHiddenWindow();
/// The first real window takes over the context.
void closeHiddenWindow();
[[nodiscard]] bool hasHiddenWindow();

/// SDL_GLContext; null until there is one.
[[nodiscard]] void* sharedContext();
/// Makes the shared context for this window if there is none yet.
void* requireSharedContext(WindowHandle& window);

/// SDL_GL_MakeCurrent, and remembers the window. Null makes none current.
void makeCurrent(WindowHandle* window);
[[nodiscard]] WindowHandle* currentWindow();
/// A dying window must not stay current.
void forgetWindow(const WindowHandle& window);

/// One unit is one pixel of the current window, y down.
void set2DProjection();
void setViewport();
/// Puts back the state that a frame starts from.
void resetFrameState();
void swap();
/// Drops the shared context and the hidden window.
void closeGl();

} // namespace nui
