#pragma once

#include "Platform/Linux/WindowSource.h"
#include "Platform/Linux/X11Atom.h"

#include <cstdint>
#include <optional>
#include <span>

namespace ambrel {

/// What a window shows of itself now.
struct X11Presentation {
    bool overrideRedirect = false;
    bool hasTransientParent = false;
    std::vector<X11Atom> types;           ///< the known ones of _NET_WM_WINDOW_TYPE, the preferred one first
    std::vector<X11Atom> states;          ///< the known ones of _NET_WM_STATE
    std::optional<std::uint32_t> wmState; ///< the first word of WM_STATE
};

[[nodiscard]] WindowKind windowKind(const X11Presentation& presentation);

/// `hiddenSupported`: the window manager keeps _NET_WM_STATE_HIDDEN. Without it only WM_STATE can tell, which
/// many set to iconic for whatever isn't on the screen.
[[nodiscard]] bool isMinimized(const X11Presentation& presentation, bool hiddenSupported);

} // namespace ambrel
