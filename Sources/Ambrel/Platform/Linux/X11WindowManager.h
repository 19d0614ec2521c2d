#pragma once

#include "Core/MainQueue.h"
#include "Core/Signal.h"
#include "Platform/Linux/X11Connection.h"

#include <chrono>
#include <cstdint>
#include <optional>

namespace ambrel {

/// Whether a window manager is there that publishes its windows. One that goes leaves its list behind, and its
/// successor builds a new one window by window: neither says anything of what has been closed. So trust ends
/// with the first sign of a change, and comes back when a successor's list has been published and stays still, or after
/// a while without any.
class X11WindowManager {
public:
    X11WindowManager(X11Connection& connection, MainQueue& queue);

    [[nodiscard]] bool isTrusted() const { return trusted_; }
    /// A list has been set at some time.
    [[nodiscard]] bool hasPublished() const { return publications_ > 0; }
    /// It keeps _NET_WM_STATE_HIDDEN.
    [[nodiscard]] bool supportsHiddenState() const { return supportsHidden_; }

    void handle(const xcb_generic_event_t& event);
    /// Looks again where an event gave cause to.
    void update();
    /// Its list can't be read.
    void lose();

    /// Trust has ended, or come back.
    Signal<bool> trustDidChange;

private:
    struct Announcement {
        xcb_window_t window; ///< the one that the root window names
        bool valid;
        bool supportsHidden;
    };
    [[nodiscard]] Announcement readAnnouncement();
    void handleProperty(const xcb_property_notify_event_t& property);
    void doubt();
    void adopt(const Announcement& announced);
    void settle();
    void becomeTrusted();
    void distrust();

    X11Connection& connection_;
    MainQueue& queue_;
    xcb_window_t checkWindow_ = XCB_WINDOW_NONE;
    bool valid_ = false;
    bool supportsHidden_ = false;
    bool trusted_ = false;
    bool doubtful_ = false;
    std::uint64_t publications_ = 0;        ///< how often the list was set
    std::uint64_t publicationsAtDoubt_ = 0; ///< of which so many may be a predecessor's
    std::optional<std::chrono::steady_clock::time_point> settlingSince_;
    WorkItemRef settling_;
};

} // namespace ambrel
