#pragma once

#include "Platform/Linux/X11Connection.h"

#include <optional>
#include <span>
#include <vector>

namespace ambrel {

class X11WindowMirror;

/// For each of `tops`, children of the root, the client window that its frame holds, or that it is itself: one
/// that is in the mirror, or else carries WM_STATE. Absent where there is none within a few levels.
[[nodiscard]] std::vector<std::optional<xcb_window_t>>
findX11Clients(X11Connection& connection, const X11WindowMirror& mirror, std::span<const xcb_window_t> tops);

} // namespace ambrel
