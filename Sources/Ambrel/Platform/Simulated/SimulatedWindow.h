#pragma once

#include "Platform/WindowServer.h"

#include <string>

namespace ambrel::simulated {

using WindowId = int;

/// One window, as a test describes it when it opens it, and as it stands later.
struct SimulatedWindow {
    std::string role = "AXWindow";
    std::string subrole = "AXStandardWindow";
    bool minimised = false;
    Rect frame{100, 100, 800, 600};
    double alpha = 1;
    int layer = 0;
    bool onOtherDesktop = false; ///< open, but not on the screen
    bool withdrawn = false;      ///< taken off the desktop by its application, but kept
    WindowId id = 0;             ///< given when it opens

    /// Attributes that can't be read, although the window has them.
    struct Unreadable {
        bool role = false;
        bool subrole = false;
        bool minimised = false;
        bool owner = false;
        bool layer = false;
        bool alpha = false;
        bool bounds = false;
    } unreadable = {};
};

} // namespace ambrel::simulated
