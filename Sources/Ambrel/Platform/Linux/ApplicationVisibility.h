#pragma once

#include "Platform/Linux/WindowSource.h"

#include <span>

namespace ambrel {

/// Whether an application is hidden: all of its windows are iconified at our own request, or none is on the desktop
/// and its user can bring it back, be it by a window that is alive or by an icon in the tray.
class ApplicationVisibility {
public:
    enum class Transition { none, hidden, shown };
    using Windows = std::span<const DesktopWindow>;

    [[nodiscard]] bool isHidden() const {
        return inTray_ || state_ == State::requested || state_ == State::withdrawn || state_ == State::asked;
    }

    /// Its windows are being iconified at our request.
    void beginHiding();
    /// The window manager has had its time to do so. Where nothing was to be iconified, or it didn't, the application
    /// counts as hidden until its next window, so that nobody asks again and again.
    void endHiding();
    void windowAppeared();

    /// To be called after each change. One that is in the tray is hidden at once, since its windows may be closed
    /// rather than withdrawn, and nothing else would tell the two apart.
    [[nodiscard]] Transition changed(Windows windows, bool ownsTrayItem);
    /// To be called when all has been as it is for a while: a window that is on its way to being closed is
    /// withdrawn, too, but not for long.
    [[nodiscard]] Transition settled(Windows windows, bool ownsTrayItem);

private:
    enum class State {
        shown,
        hiding,    ///< iconifying at our request
        requested, ///< hidden at our request
        asked,     ///< asked to be hidden, which the desktop does not show
        withdrawn, ///< hidden by itself, for a while now
    };
    State state_ = State::shown;
    bool inTray_ = false;
};

/// No window is on the desktop, and one could be again.
[[nodiscard]] bool isAway(ApplicationVisibility::Windows windows, bool ownsTrayItem);

} // namespace ambrel
