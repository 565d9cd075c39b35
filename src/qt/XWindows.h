// XWindows.h -- the windows of an X display, over a connection of its own: it works before this program has a
// window, and however that window is shown. Without a display there are none.
#pragma once

#include "platform/Screen.h"

#include <cstdint>
#include <string>
#include <vector>

/// The windows of all screens of the display. A window manager tells its clients, oldest first; where none does, they
/// are looked up below the root, lowest first. A handle is the window's number; windows may be gone already.
std::vector<TopWindow> ListXWindows();

/// Shows a window, iconified or not, on top of the others and gives it the focus. Nothing happens when it is gone.
void RaiseXWindow(std::uint32_t window);

/// The display of the environment as "host:number", without its screen; empty when it names none.
std::string XDisplayName();
