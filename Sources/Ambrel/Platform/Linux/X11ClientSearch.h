#pragma once

#include "Platform/Linux/X11Connection.h"

#include <span>
#include <unordered_map>

namespace ambrel {

class X11WindowMirror;

/// A child of the root, and the client window that its frame holds or that it is itself; 0 where there is none.
using X11Clients = std::unordered_map<xcb_window_t, xcb_window_t>;

/// Looks for the tops of managed clients that have got a new one, and has the mirror remember them. Takes as many
/// exchanges with the server as frames are deep, and none where nothing is new.
void placeX11Clients(X11Connection& connection, X11WindowMirror& mirror);

/// Finds the clients in `tops`, children of the root: those that the mirror has placed there, and others that carry
/// WM_STATE. For these it takes as many exchanges with the server as frames are deep.
[[nodiscard]] X11Clients findX11Clients(X11Connection& connection, const X11WindowMirror& mirror,
                                        std::span<const xcb_window_t> tops);

} // namespace ambrel
