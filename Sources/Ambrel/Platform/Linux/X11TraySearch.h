#pragma once

#include "Platform/Linux/X11Connection.h"

#include <unordered_set>
#include <vector>

namespace ambrel {

/// What a tray is made of.
struct X11TrayContents {
    std::unordered_set<xcb_window_t> own; ///< the windows of the program that shows the tray
    std::vector<xcb_window_t> docked;     ///< other programs' windows in them
};

/// Looks through all windows of the screen, since the window that owns the tray's selection is rarely the one that the
/// icons are in. Takes as many exchanges with the server as windows are deep.
[[nodiscard]] X11TrayContents searchX11Tray(X11Connection& connection, xcb_window_t tray);

} // namespace ambrel
