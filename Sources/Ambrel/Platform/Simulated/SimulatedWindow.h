#pragma once

#include "Platform/WindowServer.h"

namespace ambrel::simulated {

using WindowId = int;

/// One window, as a test describes it when it opens it, and as it stands later.
struct SimulatedWindow {
    WindowKind kind = WindowKind::standard;
    bool minimised = false;
    Rect frame{100, 100, 800, 600};
    double alpha = 1;
    int layer = 0;
    bool onOtherDesktop = false; ///< open, but not on the screen
    bool withdrawn = false;      ///< taken off the desktop by its application, but kept
    bool certain = true;         ///< false where it may be another process's
    WindowId id = 0;             ///< given when it opens

    /// Facts that the window server can't tell, although the window has them.
    struct Unreadable {
        bool owner = false;
        bool layer = false;
        bool alpha = false;
        bool bounds = false;
    } unreadable = {};
};

} // namespace ambrel::simulated
